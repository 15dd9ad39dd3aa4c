// Every query and report of the NEO-M8T's controller on any replies, and every operation that polls on its way.

#include <ubxController_NEOM8T.h>

#include "queries/Asking.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static ubxController_NEOM8T controller;
    const fuzz::Conversation conversation(data, size);

    const auto& queries = fuzz::messageQueries();
    const auto& operations = fuzz::operations();
    const std::size_t choice = conversation.choice % (queries.size() + 1 + operations.size());
    if (choice < queries.size()) {
        fuzz::check(queries[choice], controller, conversation);
    } else if (choice == queries.size()) {
        fuzz::checkSurveyInfo(controller, conversation);
    } else {
        fuzz::run(operations[choice - queries.size() - 1], controller, conversation);
    }
    return 0;
}

// Every query and report of the ZED-F9T's controller on any replies, through items and through messages, with the older
// and with the later firmware's keys.

#include <ubxController_ZEDF9T.h>

#include "queries/Asking.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static ubxController_ZEDF9T older("FWVER=TIM 2.13", true);
    static ubxController_ZEDF9T later("FWVER=TIM 2.20", true);
    const fuzz::Conversation conversation(data, size);
    const bool odd = conversation.choice % 2 != 0;
    ubxController_ZEDF9T& controller = odd ? later : older;

    const auto& items = fuzz::itemQueries();
    const auto& messages = fuzz::messageQueries();
    const auto& operations = fuzz::operations();
    std::size_t choice = conversation.choice / 2 % (items.size() + messages.size() + 1 + operations.size());

    controller.setZedf9tConfigurationInterfaceMode(true);
    if (choice < items.size()) {
        fuzz::check(items[choice], controller, conversation);
        return 0;
    }
    choice -= items.size();
    if (choice < messages.size()) {
        // The receiver mode of the later firmware is not asked for at all.
        older.setZedf9tConfigurationInterfaceMode(false);
        fuzz::check(messages[choice], older, conversation);
        return 0;
    }
    choice -= messages.size();
    if (choice == 0) {
        fuzz::checkSurveyInfo(controller, conversation);
        return 0;
    }
    fuzz::run(operations[choice - 1], controller, conversation);
    return 0;
}

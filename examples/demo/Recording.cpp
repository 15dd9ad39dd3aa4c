#include "Recording.h"

#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <vector>

#include <UBXMessageBuilder.h>
#include <UBXMessageList.h>

namespace demo
{

Recording::Recording(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    if (bytes.empty()) throw std::runtime_error("can't read the recording " + file + ", or it is empty");
    bytes.push_back('\n'); // a frame counts when one more byte follows it

    UBXMessageList found;
    UBXMessageBuilder builder(&found);
    builder.update(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size());
    while (const std::unique_ptr<UBXMessage> message{found.getMessage()}) {
        auto& [description, count] = messages_[message->getClassId()];
        description = message->getMessageDescription();
        ++count;
    }
    if (messages_.empty()) throw std::runtime_error(file + " holds no UBX frame that the library knows");
}

} // namespace demo

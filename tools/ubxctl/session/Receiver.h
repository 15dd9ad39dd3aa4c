#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <UBXControlInterface.h>

#include "session/ErrorLogs.h"
#include "wire/Exchange.h"

namespace ubxctl
{

/// In which of its two languages a ZED-F9T is configured.
enum class Language
{
    automatic, ///< By items; by messages where only those can do what is asked.
    items,
    messages
};

/// What the receiver said of itself.
struct Identity
{
    std::string chip; ///< "ZEDF9T" or "NEOM8T"
    std::string hardware;
    std::string firmware;
    std::string protocol;
    std::string module;

    /// A receiver that did not answer counts as a NEO-M8T, but nobody knows what it is.
    bool isKnown() const { return !hardware.empty(); }
    bool isZedF9t() const { return chip == "ZEDF9T"; }
    std::string modelName() const; ///< "ZED-F9T"

    /// As the library recorded it when it identified the receiver.
    static Identity recorded();
};

/// The identified receiver: the library's operations, and polls for what they leave out.
class Receiver
{
public:
    Receiver(std::shared_ptr<UBXControlInterface> control, std::shared_ptr<Exchange> exchange, Identity identity,
             Language language);

    UBXControlInterface& control() { return *control_; }
    Exchange& exchange() { return *exchange_; }
    const Identity& identity() const { return identity_; }
    Language language() const { return language_; }

    /// Whether settings are read and written as items with a key.
    bool usesItems() const { return identity_.isZedF9t() && language_ != Language::messages; }

    /// Runs operations that write. @return their status; with 8 when one of them could not be written, which the
    /// library tells in its log only.
    int write(const std::function<int(UBXControlInterface&)>& operations);

    /// Runs operations in the language of messages, whatever the present one.
    int inMessages(const std::function<int(UBXControlInterface&)>& operations);

    /// The values of items by their key, from one poll. @return 0, 1, 4 or 8.
    int items(const std::vector<std::uint32_t>& keys, std::map<std::uint32_t, std::uint64_t>& values);

private:
    std::shared_ptr<UBXControlInterface> control_;
    std::shared_ptr<Exchange> exchange_;
    Identity identity_;
    Language language_;
};

} // namespace ubxctl

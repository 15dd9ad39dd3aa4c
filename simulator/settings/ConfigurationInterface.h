#pragma once

#include "simulator/settings/LegacyView.h"
#include "simulator/wire/Answer.h"

#include <functional>

namespace ubxsim
{

/// CFG-VALSET, CFG-VALGET and CFG-VALDEL over the store.
class ConfigurationInterface
{
public:
    /// `isLegal` judges a set of changes as a whole before RAM is written.
    ConfigurationInterface(SettingsStore& store, std::function<bool(const Changes&)> isLegal);

    Answer get(const Bytes& payload) const;
    Answer set(const Bytes& payload);
    Answer remove(const Bytes& payload);

    /// Any other configuration message ends an open transaction; nothing of it is applied.
    void cancelTransaction();

private:
    enum class Step : std::uint8_t
    {
        none,
        start,
        proceed,
        finish
    };

    struct Transaction
    {
        bool open = false;
        bool removes = false;
        std::uint8_t layers = 0;
        Changes changes;
    };

    bool mayApply(std::uint8_t layers, const Changes& changes) const;
    Answer carryOut(Step step, bool removes, std::uint8_t layers, Changes changes);
    void apply(bool removes, std::uint8_t layers, const Changes& changes);

    SettingsStore& store_;
    std::function<bool(const Changes&)> isLegal_;
    Transaction transaction_;
};

} // namespace ubxsim

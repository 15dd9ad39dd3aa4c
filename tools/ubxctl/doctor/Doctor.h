#pragma once

#include <string>
#include <vector>

#include "session/Session.h"

namespace ubxctl
{

/// One link of the chain from the device node to the fix.
struct Finding
{
    enum class Verdict
    {
        good,
        attention,
        bad,
        skipped
    };

    std::string subject; ///< "Version reply"
    std::string key;     ///< "version_reply"
    Verdict verdict;
    std::string found;
    std::string advice = {}; ///< What to do where it is not good.
};

/// Walks the chain. Links that depend on a broken one are skipped.
class Doctor
{
public:
    explicit Doctor(Session& session) : session_(session) {}

    void examine();

    const std::vector<Finding>& findings() const { return findings_; }
    int status() const { return status_; }

private:
    bool device();
    bool claim();
    bool stream();
    bool version();
    void protocols();
    void model();
    void antenna();
    void sky();
    void timeMode();
    void logs();

    void good(const std::string& subject, const std::string& key, const std::string& found);
    void attention(const std::string& subject, const std::string& key, const std::string& found,
                   const std::string& advice);
    void bad(int status, const std::string& subject, const std::string& key, const std::string& found,
             const std::string& advice);

    Session& session_;
    std::vector<Finding> findings_;
    int status_ = 0;
};

Outcome reportOf(const Doctor& doctor);

} // namespace ubxctl

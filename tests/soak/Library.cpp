#include "Library.h"

#include <cstring>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <malloc.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ubloxChipInfo.h>
#include <ubxController.h>
#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include "Files.h"
#include "FlushLog.h"
#include "HeapBlocks.h"
#include "SimulatedPlatform.h"
#include "TestClock.h"

namespace soak
{

namespace
{

struct Request
{
    Drive drive;
    std::size_t operation;
    Arguments arguments;
    double clockSpeed;
};

struct Response
{
    int status;
    char shown[100];
    long blocksInUse;
    std::size_t bytesInUse, residentPages, descriptors;
};

/// The other side: does what it is told until the connection ends.
class Worker
{
public:
    Response run(const Request& request)
    {
        Response response{};
        const Operation& operation = operationsOf(request.drive)[request.operation];
        if (request.clockSpeed > 1) testclock::runFast(request.clockSpeed);
        {
            std::string shown;
            if (operation.run == nullptr) {
                ubxController facade;
                response.status = facade.setAntennaPower("ON");
                shown = ubloxChipInfo::getUbloxChipName();
            } else {
                response.status = operation.run(controllerFor(request.drive), request.arguments, shown);
            }
            std::strncpy(response.shown, shown.c_str(), sizeof response.shown - 1);
        }
        testclock::runNormally();
        // They note what they are asked.
        ubxplatform::reset();
        flushlog::clear();
        count(response);
        return response;
    }

private:
    UBXControlInterface& controllerFor(Drive drive)
    {
        if (drive == Drive::neoM8t) return neoM8t_;
        // Only when it is to be another one: operations that change it for themselves must put it back.
        if (drive != zedF9tDrive_) zedF9t_.setZedf9tConfigurationInterfaceMode(drive == Drive::zedF9tItems);
        zedF9tDrive_ = drive;
        return zedF9t_;
    }

    static void count(Response& response)
    {
        response.descriptors = testsupport::openDescriptors();
        std::size_t size = 0;
        std::ifstream("/proc/self/statm") >> size >> response.residentPages;
        response.blocksInUse = testsupport::heapBlocks();
        response.bytesInUse = ::mallinfo2().uordblks;
    }

    ubxController_NEOM8T neoM8t_;
    ubxController_ZEDF9T zedF9t_{"FWVER=TIM 2.20", true};
    Drive zedF9tDrive_ = Drive::zedF9tItems;
};

[[noreturn]] void work(int connection)
{
    // The library says on them what goes wrong, and much is to go wrong.
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);

    Worker worker;
    Request request{};
    while (::recv(connection, &request, sizeof request, 0) == static_cast<ssize_t>(sizeof request)) {
        const Response response = worker.run(request);
        if (::send(connection, &response, sizeof response, MSG_NOSIGNAL) < 0) break;
    }
    ::_exit(0);
}

} // namespace

Library::Library()
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) {
        throw std::system_error(errno, std::generic_category(), "socketpair");
    }
    process_ = ::fork();
    if (process_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (process_ == 0) {
        ::close(ends[0]);
        work(ends[1]);
    }
    ::close(ends[1]);
    connection_ = ends[0];
}

Library::~Library()
{
    ::close(connection_);
    ::waitpid(process_, nullptr, 0);
}

Done Library::run(Drive drive, std::size_t operation, Arguments arguments, double clockSpeed)
{
    const Request request{drive, operation, arguments, clockSpeed};
    Response response{};
    if (::send(connection_, &request, sizeof request, MSG_NOSIGNAL) < 0 ||
        ::recv(connection_, &response, sizeof response, 0) != static_cast<ssize_t>(sizeof response)) {
        throw std::runtime_error("the library's process has ended");
    }
    return {response.status,     response.shown,         response.blocksInUse,
            response.bytesInUse, response.residentPages, response.descriptors};
}

} // namespace soak

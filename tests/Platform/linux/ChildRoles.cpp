#include "Platform/linux/ChildRoles.h"

#include "Platform/linux/DBusInstanceDoor.h"
#include "Platform/linux/UnixTerminationSignals.h"

#include <QCoreApplication>
#include <QProcessEnvironment>

#include <csignal>
#include <cstdio>
#include <string_view>

#include <sys/prctl.h>
#include <unistd.h>

namespace jotwell {

namespace {

constexpr std::array roleNames{"--start", "--hang-at-door", "--await-signal"};

void sayReady()
{
    std::puts("ready");
    std::fflush(stdout);
}

int start()
{
    DBusInstanceDoor door;
    return door.claim() == InstanceDoor::Claim::owner ? becameOwner : wasDelivered;
}

int hangAtDoor()
{
    DBusInstanceDoor door;
    if (door.claim() != InstanceDoor::Claim::owner)
        return wasDelivered;
    sayReady();
    for (;;)
        ::pause();
}

int awaitSignal(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    UnixTerminationSignals terminationSignals;
    terminationSignals.listen([] { QCoreApplication::exit(endedByRequest); });
    sayReady();
    return QCoreApplication::exec();
}

} // namespace

std::optional<int> playChildRole(int argc, char** argv)
{
    const std::string_view name = argc > 1 ? argv[1] : "";
    if (name == roleNames[0])
        return start();
    if (name == roleNames[1])
        return hangAtDoor();
    if (name == roleNames[2])
        return awaitSignal(argc, argv);
    return std::nullopt;
}

std::unique_ptr<QProcess> startChild(ChildRole role, Environment environment)
{
    auto child = std::make_unique<QProcess>();
    auto variables = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : environment)
        variables.insert(name, value);
    child->setProcessEnvironment(variables);
    child->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    child->start(QCoreApplication::applicationFilePath(),
                 {QString::fromLatin1(roleNames.at(static_cast<std::size_t>(role)))});
    return child;
}

} // namespace jotwell

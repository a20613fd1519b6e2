#include "Index/HoldProbe.h"
#include "Index/IndexJobs.h"
#include "Index/IndexUnderTest.h"

#include "Support/Logging.h"

#include <QCoreApplication>
#include <QHash>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

// IndexBench VAULT COUNT SCRATCH [JOB]: runs the jobs of the index on a vault of COUNT notes, or
// one of those that need no built index, by turns with bare programs. It prints one line of JSON
// for each figure.

using namespace jotwell;
using namespace jotwell::bench;

namespace {

void measureAll(const VaultUnderTest& vault)
{
    measureIdleHold(vault);
    measureCleaning(vault);
    measureBuild(vault);
    measureRecentNotes(vault);
    const QTemporaryDir data(vault.scratch + QStringLiteral("/index-XXXXXX"));
    IndexUnderTest index(data.path());
    measureStore(vault, index, data.path());
    measureSearches(vault, index);
    measureNameSearches(vault, index);
    measureScan(vault, index);
    measureRebuild(vault, index);
}

const QHash<QString, void (*)(const VaultUnderTest&)> jobs = {
    {QStringLiteral("all"), measureAll},       {QStringLiteral("cleaning"), measureCleaning},
    {QStringLiteral("build"), measureBuild},   {QStringLiteral("recent"), measureRecentNotes},
    {QStringLiteral("memory"), measureMemory}, // in a process of its own
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto measure = jobs.value(arguments.value(4, QStringLiteral("all")));
    if (arguments.size() < 4 || !measure) {
        std::fputs("IndexBench VAULT COUNT SCRATCH [JOB]\n", stderr);
        return EXIT_FAILURE;
    }
    setLogSink([](const LogRecord&) {});
    HoldProbe::checkItself();
    measure({arguments[1], arguments[3], static_cast<std::size_t>(arguments[2].toInt())});
}

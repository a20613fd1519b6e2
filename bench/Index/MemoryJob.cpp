#include "Index/IndexJobs.h"
#include "Index/IndexUnderTest.h"

#include <QTemporaryDir>

#include <cstdio>

#include <unistd.h>

namespace jotwell::bench {

namespace {

/// Bytes of this process that lie in memory.
double residentMemory()
{
    long all = 0;
    long resident = 0;
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    require(file && std::fscanf(file, "%ld %ld", &all, &resident) == 2, "statm tells of memory");
    std::fclose(file);
    return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

} // namespace

void measureMemory(const VaultUnderTest& vault)
{
    const QTemporaryDir data(vault.scratch + QStringLiteral("/index-XXXXXX"));
    IndexUnderTest index(data.path());
    const double before = residentMemory();
    index.fill(vault.path);
    const double after = residentMemory();
    double text = 0;
    double cleaned = 0;
    index.notes().forEach([&](const FileMetadataPtr& record) {
        text += static_cast<double>(record->fullContent.size());
        cleaned += static_cast<double>(record->cleanedContent.size());
    });
    printFigure("memory per byte", (after - before) / text);
    printFigure("both texts per byte", (text + cleaned) / text);
}

} // namespace jotwell::bench

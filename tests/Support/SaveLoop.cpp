#include "Platform/linux/PosixFileCalls.h"
#include "Support/AtomicFile.h"

#include <cstdlib>

// Writes notes into the folder of its first argument until it is killed, each of one letter
// repeated as often as the second argument says: new files in turn with one that is replaced again
// and again.
int main(int argc, char** argv)
{
    using namespace jotwell;
    if (argc < 3)
        return EXIT_FAILURE;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const qsizetype size = std::atol(argv[2]);
    PosixFileCalls calls;
    const AtomicFile file(calls);
    for (int round = 0;; ++round) {
        const QByteArray bytes(size, static_cast<char>('a' + round % 26));
        const QString name =
            round % 2 ? QStringLiteral("same.md") : QStringLiteral("%1.md").arg(round);
        if (!file.write(folder + u'/' + name, bytes))
            return EXIT_FAILURE;
    }
}

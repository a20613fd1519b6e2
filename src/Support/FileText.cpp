#include "Support/FileText.h"

#include <QFile>
#include <QStringDecoder>

#include <array>
#include <cerrno>
#include <new>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace jotwell {

namespace {

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number;
};

// Any size that a file claims is asked of the memory, and there are files of terabytes.
std::optional<QByteArray> roomFor(qsizetype size)
{
    try {
        return QByteArray(size, Qt::Uninitialized);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

ssize_t readInto(int descriptor, QByteArray& bytes, qsizetype filled, std::array<char, 16384>& more)
{
    const std::array<iovec, 2> targets{
        iovec{bytes.data() + filled, static_cast<size_t>(bytes.size() - filled)},
        iovec{more.data(), more.size()}};
    for (;;) {
        const ssize_t count = ::readv(descriptor, targets.data(), static_cast<int>(targets.size()));
        if (count >= 0 || errno != EINTR)
            return count;
    }
}

// Reads on to the end of the file rather than to its size, which may change meanwhile. For a file
// that kept its size one call does: it is asked for more, and there is none.
Result<QByteArray, SystemError> readToEnd(int descriptor, qsizetype expected)
{
    auto room = roomFor(expected);
    if (!room)
        return SystemError{ENOMEM};
    QByteArray bytes = *std::move(room);
    std::array<char, 16384> more;
    qsizetype filled = 0;
    do {
        const ssize_t count = readInto(descriptor, bytes, filled, more);
        if (count < 0)
            return SystemError::last();
        if (count == 0)
            break;
        filled += count;
        if (filled > bytes.size())
            bytes.append(more.data(), filled - bytes.size());
    } while (filled != expected);
    bytes.truncate(filled);
    if (bytes.capacity() != filled)
        bytes.squeeze();
    return bytes;
}

} // namespace

Result<QByteArray, SystemError> readFile(const QString& path)
{
    return readFile(QFile::encodeName(path));
}

Result<QByteArray, SystemError> readFile(const QByteArray& path)
{
    if (path.contains('\0'))
        return SystemError{EINVAL};
    // Without O_NONBLOCK, opening a FIFO would wait for a writer.
    const Descriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (file.number() < 0)
        return SystemError::last();
    struct stat status = {};
    if (::fstat(file.number(), &status) != 0)
        return SystemError::last();
    if (!S_ISREG(status.st_mode))
        return SystemError{S_ISDIR(status.st_mode) ? EISDIR : EINVAL};
    return readToEnd(file.number(), status.st_size);
}

Result<QString, SystemError> readTextFile(const QString& path)
{
    const auto bytes = readFile(path);
    if (!bytes)
        return bytes.error();
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(*bytes);
    if (decoder.hasError())
        return SystemError{EILSEQ};
    return text;
}

} // namespace jotwell

#include "Support/FileText.h"

#include <QFile>
#include <QStringDecoder>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
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

// Reads on to the end of the file rather than to its size, which may change meanwhile.
Result<QByteArray, SystemError> readToEnd(int descriptor, qsizetype expected)
{
    constexpr qsizetype step = 65536;
    QByteArray bytes;
    qsizetype filled = 0;
    for (;;) {
        if (filled == bytes.size())
            bytes.resize(filled == 0 ? expected + 1 : filled + std::max(filled / 2, step));
        const ssize_t count =
            ::read(descriptor, bytes.data() + filled, static_cast<size_t>(bytes.size() - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return SystemError::last();
        if (count == 0)
            break;
        filled += count;
    }
    bytes.truncate(filled);
    return bytes;
}

} // namespace

Result<QByteArray, SystemError> readFile(const QString& path)
{
    if (path.contains(QChar::Null))
        return SystemError{EINVAL};
    // Without O_NONBLOCK, opening a FIFO would wait for a writer.
    const Descriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
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

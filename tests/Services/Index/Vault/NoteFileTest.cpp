#include "Services/Index/Vault/NoteFile.h"

#include "QtPrinters.h"
#include "Services/ScratchFolder.h"
#include "Services/Unprivileged.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

namespace jotwell {

namespace {

class ReadNote : public testing::Test {
protected:
    [[nodiscard]] QByteArray pathOf(const QString& name) const
    {
        return vault.pathOf(name).toUtf8();
    }
    [[nodiscard]] int errorOf(const QString& name) const
    {
        const auto bytes = readNote(pathOf(name));
        return bytes ? 0 : bytes.error().code;
    }
    [[nodiscard]] Result<QByteArray, SystemError> readingOf(const QByteArray& bytes) const
    {
        vault.put(u"x.md"_qs, bytes);
        return readNote(pathOf(u"x.md"_qs));
    }

    ScratchFolder vault;
};

TEST_F(ReadNote, GivesTheBytesUnchanged)
{
    const QByteArray bytes("\xef\xbb\xbf---\r\n\0\xc3\xa4\n", 13);
    EXPECT_EQ(*readingOf(bytes), bytes);
    EXPECT_EQ(*readingOf({}), QByteArray());
}

TEST_F(ReadNote, TakesNoMoreRoomThanTheBytesNeed)
{
    for (const qsizetype size : {1, 100, 4095, 4096, 16384, 16385, 1'000'001}) {
        const auto bytes = readingOf(QByteArray(size, 'x'));
        ASSERT_EQ(bytes->size(), size);
        EXPECT_EQ(bytes->capacity(), size);
    }
}

TEST_F(ReadNote, AHugeNoteComesWhole)
{
    constexpr qsizetype size = 200'000'000;
    vault.put(u"x.md"_qs, "begin");
    ASSERT_EQ(::truncate(pathOf(u"x.md"_qs).constData(), size), 0);
    const auto bytes = readNote(pathOf(u"x.md"_qs));
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->size(), size);
    EXPECT_EQ(bytes->capacity(), size);
    EXPECT_TRUE(bytes->startsWith("begin"));
    EXPECT_EQ(bytes->back(), '\0');
}

TEST_F(ReadNote, ASizeBeyondAllMemoryIsAnError)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "a sanitizer needs all addresses there are";
#endif
    vault.put(u"x.md"_qs, "begin");
    const rlimit little{1ULL << 33, RLIM_INFINITY};
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_AS, &before), 0);
    ASSERT_EQ(::truncate(pathOf(u"x.md"_qs).constData(), 1LL << 34), 0);
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &little), 0);
    EXPECT_EQ(errorOf(u"x.md"_qs), ENOMEM);
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &before), 0);
}

TEST_F(ReadNote, ALinkToANoteIsRead)
{
    vault.put(u"real"_qs, "text");
    vault.makeLink(u"x.md"_qs, vault.pathOf(u"real"_qs));
    vault.makeLink(u"y.md"_qs, vault.pathOf(u"x.md"_qs));
    EXPECT_EQ(*readNote(pathOf(u"x.md"_qs)), "text");
    EXPECT_EQ(*readNote(pathOf(u"y.md"_qs)), "text");
}

TEST_F(ReadNote, LinksThatLeadToNoFileFail)
{
    vault.makeFolder(u"folder"_qs);
    vault.makeFifo(u"fifo"_qs);
    vault.makeLink(u"dangling.md"_qs, vault.pathOf(u"gone"_qs));
    vault.makeLink(u"round.md"_qs, vault.pathOf(u"round.md"_qs));
    vault.makeLink(u"folder.md"_qs, vault.pathOf(u"folder"_qs));
    vault.makeLink(u"fifo.md"_qs, vault.pathOf(u"fifo"_qs));
    EXPECT_EQ(errorOf(u"dangling.md"_qs), ENOENT);
    EXPECT_EQ(errorOf(u"round.md"_qs), ELOOP);
    EXPECT_EQ(errorOf(u"folder.md"_qs), EISDIR);
    EXPECT_EQ(errorOf(u"fifo.md"_qs), EINVAL);
}

TEST_F(ReadNote, WhatIsNoFileFailsAtOnce)
{
    vault.makeFolder(u"folder.md"_qs);
    vault.makeFifo(u"fifo.md"_qs);
    EXPECT_EQ(errorOf(u"folder.md"_qs), EISDIR);
    EXPECT_EQ(errorOf(u"fifo.md"_qs), EINVAL);
    EXPECT_EQ(errorOf(u"gone.md"_qs), ENOENT);
}

TEST_F(ReadNote, AFifoIsNotEvenOpened)
{
    vault.makeFifo(u"fifo.md"_qs);
    std::atomic<bool> opened = false;
    std::thread writer([&] {
        const int end = ::open(pathOf(u"fifo.md"_qs).constData(), O_WRONLY | O_CLOEXEC);
        opened = true;
        ::close(end);
    });
    const auto start = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(50))
        EXPECT_EQ(errorOf(u"fifo.md"_qs), EINVAL);
    EXPECT_FALSE(opened);
    ::close(::open(pathOf(u"fifo.md"_qs).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    writer.join();
}

TEST_F(ReadNote, SocketsFail)
{
    const int number = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, pathOf(u"socket.md"_qs).constData(), sizeof(address.sun_path));
    ASSERT_EQ(::bind(number, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(errorOf(u"socket.md"_qs), EINVAL);
    ::close(number);
}

TEST_F(ReadNote, DevicesFail)
{
    vault.makeLink(u"link.md"_qs, u"/dev/zero"_qs);
    EXPECT_EQ(errorOf(u"link.md"_qs), EINVAL);
    const QByteArray node = pathOf(u"zero.md"_qs);
    if (::mknod(node.constData(), S_IFCHR | 0600, ::makedev(1, 5)) != 0)
        GTEST_SKIP() << "only root may make a device";
    EXPECT_EQ(errorOf(u"zero.md"_qs), EINVAL);
}

TEST_F(ReadNote, AnUnreadableNoteFails)
{
    vault.put(u"x.md"_qs, "text");
    ASSERT_EQ(::chmod(pathOf(u"x.md"_qs).constData(), 0), 0);
    const Unprivileged user(vault.path());
    EXPECT_EQ(errorOf(u"x.md"_qs), EACCES);
}

TEST_F(ReadNote, APathWithANulFails)
{
    vault.put(u"x.md"_qs, "text");
    EXPECT_EQ(readNote(pathOf(u"x.md"_qs) + QByteArray("\0y", 2)).error().code, EINVAL);
}

// The status may be older than what now stands there.
TEST_F(ReadNote, WhatHasTakenTheNotesPlaceFails)
{
    vault.put(u"x.md"_qs, "text");
    const QByteArray path = pathOf(u"x.md"_qs);
    const auto status = fileStatus(path);
    vault.remove(u"x.md"_qs);
    EXPECT_EQ(readNote(path, *status).error().code, ENOENT);
    vault.makeFifo(u"x.md"_qs);
    EXPECT_EQ(readNote(path, *status).error().code, EINVAL);
    vault.remove(u"x.md"_qs);
    vault.makeFolder(u"x.md"_qs);
    EXPECT_EQ(readNote(path, *status).error().code, EISDIR);
}

TEST_F(ReadNote, AFileWithoutASizeIsReadToItsEnd)
{
    const auto bytes = readNote("/proc/self/status");
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->contains("VmRSS"));
    EXPECT_EQ(bytes->capacity(), bytes->size());
}

TEST_F(ReadNote, AFileThatChangesMeanwhileGivesWhatWasThere)
{
    constexpr off_t longest = 60'000;
    vault.put(u"x.md"_qs);
    const QByteArray path = pathOf(u"x.md"_qs);
    const std::jthread writer([&](const std::stop_token& stop) {
        for (off_t size = 1; !stop.stop_requested(); size = size * 7 % longest)
            EXPECT_EQ(::truncate(path.constData(), size), 0);
    });
    for (int each = 0; each < 3000; ++each) {
        const auto bytes = readNote(path);
        ASSERT_TRUE(bytes);
        ASSERT_LE(bytes->size(), longest);
        ASSERT_EQ(bytes->capacity(), bytes->size());
        ASSERT_EQ(bytes->count('\0'), bytes->size());
    }
}

TEST_F(ReadNote, AFileThatComesAndGoesGivesItsBytesOrNone)
{
    const QByteArray path = pathOf(u"x.md"_qs);
    const std::jthread writer([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            vault.put(u"new"_qs, "text");
            vault.rename(u"new"_qs, u"x.md"_qs);
            vault.remove(u"x.md"_qs);
        }
    });
    for (int each = 0; each < 3000; ++each) {
        const auto bytes = readNote(path);
        ASSERT_TRUE(bytes ? *bytes == "text" : bytes.error().code == ENOENT);
    }
}

struct Utf8Case {
    const char* name;
    QByteArray bytes;
    bool isValid;
};

class ReadNoteUtf8 : public testing::TestWithParam<Utf8Case> {};

// At every place among other bytes: long texts are looked at many bytes at a time.
TEST_P(ReadNoteUtf8, IsToldFromOtherBytes)
{
    const int file = ::memfd_create("note", MFD_CLOEXEC);
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(file);
    for (qsizetype before = 0; before <= 66; ++before) {
        for (const qsizetype after : {0, 1, 40}) {
            const QByteArray text =
                QByteArray(before, 'a') + GetParam().bytes + QByteArray(after, 'b');
            ASSERT_EQ(::ftruncate(file, text.size()), 0);
            ASSERT_EQ(::pwrite(file, text.constData(), static_cast<size_t>(text.size()), 0),
                      text.size());
            const auto bytes = readNote(path);
            ASSERT_EQ(bytes.ok(), GetParam().isValid) << before << " before, " << after << " after";
            ASSERT_TRUE(bytes ? *bytes == text : bytes.error().code == EILSEQ);
        }
    }
    ::close(file);
}

INSTANTIATE_TEST_SUITE_P(
    All, ReadNoteUtf8,
    testing::Values(
        Utf8Case{"Nul", QByteArray(1, '\0'), true}, Utf8Case{"TwoBytesFirst", "\xc2\x80", true},
        Utf8Case{"TwoBytesLast", "\xdf\xbf", true},
        Utf8Case{"ThreeBytesFirst", "\xe0\xa0\x80", true},
        Utf8Case{"BeforeSurrogates", "\xed\x9f\xbf", true},
        Utf8Case{"BehindSurrogates", "\xee\x80\x80", true},
        Utf8Case{"ByteOrderMark", "\xef\xbb\xbf", true},
        Utf8Case{"Noncharacter", "\xef\xbf\xbf", true},
        Utf8Case{"FourBytesFirst", "\xf0\x90\x80\x80", true},
        Utf8Case{"LastOfAll", "\xf4\x8f\xbf\xbf", true},
        Utf8Case{"ContinuationAlone", "\x80", false}, Utf8Case{"TwoBytesCut", "\xc3", false},
        Utf8Case{"ThreeBytesCutToOne", "\xe2", false},
        Utf8Case{"ThreeBytesCutToTwo", "\xe2\x82", false},
        Utf8Case{"FourBytesCutToOne", "\xf0", false},
        Utf8Case{"FourBytesCutToTwo", "\xf0\x9f", false},
        Utf8Case{"FourBytesCutToThree", "\xf0\x9f\x98", false},
        Utf8Case{"OverlongNul", "\xc0\x80", false}, Utf8Case{"OverlongTwoBytes", "\xc1\xbf", false},
        Utf8Case{"OverlongThreeBytes", "\xe0\x9f\xbf", false},
        Utf8Case{"OverlongFourBytes", "\xf0\x8f\xbf\xbf", false},
        Utf8Case{"HighSurrogate", "\xed\xa0\x80", false},
        Utf8Case{"LowSurrogate", "\xed\xbf\xbf", false},
        Utf8Case{"SurrogatePair", "\xed\xa0\xbd\xed\xb8\x80", false},
        Utf8Case{"BeyondUnicode", "\xf4\x90\x80\x80", false},
        Utf8Case{"FarBeyondUnicode", "\xf5\x80\x80\x80", false},
        Utf8Case{"FiveBytes", "\xf8\x88\x80\x80\x80", false}, Utf8Case{"Fe", "\xfe", false},
        Utf8Case{"Ff", "\xff", false}, Utf8Case{"Utf16", QByteArray("\xff\xfe\x61\x00", 4), false},
        Utf8Case{"Latin1", "caf\xe9 ", false}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace

} // namespace jotwell

#include "Platform/linux/LinuxFileSystems.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

#include <sys/statfs.h>

namespace jotwell {

namespace {

struct KindCase {
    const char* name;
    unsigned long magic;
    bool keepsChangeTimes;
};

class LinuxFileSystemsKind : public testing::TestWithParam<KindCase> {};

TEST_P(LinuxFileSystemsKind, IsTrustedOnlyIfKnown)
{
    EXPECT_EQ(LinuxFileSystems::kindKeepsChangeTimes(GetParam().magic),
              GetParam().keepsChangeTimes);
}

INSTANTIATE_TEST_SUITE_P(
    All, LinuxFileSystemsKind,
    testing::Values(KindCase{"Ext4", 0xef53, true}, KindCase{"Btrfs", 0x9123683e, true},
                    KindCase{"Xfs", 0x58465342, true}, KindCase{"F2fs", 0xf2f52010, true},
                    KindCase{"Zfs", 0x2fc12fc1, true}, KindCase{"Bcachefs", 0xca451a4e, true},
                    KindCase{"Jfs", 0x3153464a, true}, KindCase{"Overlay", 0x794c7630, true},
                    KindCase{"Nfs", 0x6969, false}, KindCase{"Smb", 0x517b, false},
                    KindCase{"Cifs", 0xff534d42, false}, KindCase{"Smb2", 0xfe534d42, false},
                    KindCase{"Afs", 0x5346414f, false}, KindCase{"Ceph", 0x00c36400, false},
                    KindCase{"Plan9", 0x01021997, false}, KindCase{"Fuse", 0x65735546, false},
                    KindCase{"Fat", 0x4d44, false}, KindCase{"ExFat", 0x2011bab0, false},
                    KindCase{"Ntfs3", 0x7366746e, false}, KindCase{"Hfs", 0x482b, false},
                    KindCase{"Ecryptfs", 0xf15f, false}, KindCase{"Memory", 0x01021994, false},
                    KindCase{"RamFs", 0x858458f6, false}, KindCase{"Proc", 0x9fa0, false},
                    KindCase{"Unknown", 0x1, false}, KindCase{"None", 0, false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(LinuxFileSystemsTest, AsksTheFileSystemOfThePath)
{
    LinuxFileSystems fileSystems;
    const QTemporaryDir folder;
    struct statfs status = {};
    ASSERT_EQ(::statfs(qPrintable(folder.path()), &status), 0);
    const auto magic = static_cast<unsigned long>(status.f_type);
    EXPECT_EQ(fileSystems.keepsChangeTimes(qPrintable(folder.path())),
              LinuxFileSystems::kindKeepsChangeTimes(magic));
    EXPECT_EQ(fileSystems.keepsChangeTimes("/proc/self/status"), false);
}

TEST(LinuxFileSystemsTest, DoesNotKnowWhereNothingIs)
{
    EXPECT_EQ(LinuxFileSystems().keepsChangeTimes("/proc/self/nothing"), std::nullopt);
}

} // namespace

} // namespace jotwell

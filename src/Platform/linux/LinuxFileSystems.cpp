#include "Platform/linux/LinuxFileSystems.h"

#include <algorithm>
#include <array>

#include <linux/magic.h>
#include <sys/statfs.h>

namespace jotwell {

namespace {

constexpr std::array<unsigned long, 8> trusted{
    BTRFS_SUPER_MAGIC,
    EXT4_SUPER_MAGIC, // that of ext2 and ext3 as well
    F2FS_SUPER_MAGIC, OVERLAYFS_SUPER_MAGIC,
    // Not in the kernel's public headers:
    0x2fc12fc1, // zfs
    0x3153464a, // jfs
    0x58465342, // xfs
    0xca451a4e, // bcachefs
};

} // namespace

std::optional<bool> LinuxFileSystems::keepsChangeTimes(const char* path)
{
    struct statfs status = {};
    if (::statfs(path, &status) != 0)
        return std::nullopt;
    return kindKeepsChangeTimes(static_cast<unsigned long>(status.f_type));
}

bool LinuxFileSystems::kindKeepsChangeTimes(unsigned long magic)
{
    return std::find(trusted.begin(), trusted.end(), magic) != trusted.end();
}

} // namespace jotwell

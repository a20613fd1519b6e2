#include "Platform/linux/LinuxFileSystems.h"

#include <algorithm>
#include <array>

#include <linux/magic.h>
#include <sys/statfs.h>

namespace jotwell {

namespace {

// Not in the kernel's public headers.
constexpr std::array<unsigned long, 4> privateMagics{
    0x58465342, // xfs
    0x2fc12fc1, // zfs
    0xca451a4e, // bcachefs
    0x3153464a, // jfs
};

constexpr std::array<unsigned long, 6> publicMagics{
    EXT4_SUPER_MAGIC, BTRFS_SUPER_MAGIC, TMPFS_MAGIC,
    RAMFS_MAGIC,      F2FS_SUPER_MAGIC,  OVERLAYFS_SUPER_MAGIC,
};

} // namespace

std::optional<bool> LinuxFileSystems::keepsChangeTimes(const char* path)
{
    struct statfs status = {};
    if (::statfs(path, &status) != 0)
        return std::nullopt;
    const auto magic = static_cast<unsigned long>(status.f_type);
    const auto isIn = [magic](const auto& magics) {
        return std::find(magics.begin(), magics.end(), magic) != magics.end();
    };
    return isIn(publicMagics) || isIn(privateMagics);
}

} // namespace jotwell

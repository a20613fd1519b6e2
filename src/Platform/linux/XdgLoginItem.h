#pragma once

#include "Platform/LoginItem.h"
#include "Platform/linux/AutostartFolders.h"
#include "Support/AtomicFile.h"
#include "Support/Result.h"
#include "Support/SystemError.h"

namespace jotwell {

class FileCalls;

/// An entry in the user's autostart folder. The file is the status: whoever edits or deletes it has
/// the say, and what they add to it stays. Blocking; the files are small.
class XdgLoginItem : public LoginItem {
public:
    /// `program` is what the desktop is to start, an absolute path.
    XdgLoginItem(AutostartFolders folders, QString program, FileCalls& calls);

    [[nodiscard]] Status status() const override;
    [[nodiscard]] std::optional<QString> registerItem() override;
    [[nodiscard]] std::optional<QString> unregisterItem() override;

private:
    [[nodiscard]] QString file() const;
    [[nodiscard]] bool wouldStartBySystem() const;
    [[nodiscard]] Result<DesktopEntry, SystemError> ownEntry() const;
    [[nodiscard]] std::optional<QString> makeFolder() const;
    [[nodiscard]] DesktopEntry completed(DesktopEntry entry) const;
    [[nodiscard]] static DesktopEntry hidden(DesktopEntry entry);
    [[nodiscard]] std::optional<QString> write(const DesktopEntry& entry) const;
    [[nodiscard]] std::optional<QString> replaceLink(const QByteArray& bytes) const;
    [[nodiscard]] std::optional<QString> removeFile() const;

    AutostartFolders m_folders;
    QString m_program;
    FileCalls& m_calls;
    AtomicFile m_file;
};

} // namespace jotwell

#pragma once

#include "Platform/Workspace.h"

#include <QStringList>

namespace jotwell {

/// A desktop that only remembers what it was handed.
class FakeWorkspace : public Workspace {
public:
    void openUrl(const QString& url) override { opened.append(url); }

    QStringList opened;
};

} // namespace jotwell

#pragma once

#include "Fakes/FakePlatform.h"
#include "Fakes/TaskRunner.h"
#include "Services/ObsidianService.h"
#include "Services/ScratchFolder.h"
#include "Services/SettingsService.h"
#include "Services/TagIndexService.h"
#include "Services/ToastLog.h"

namespace jotwell {

/// The note service over a fresh vault, with all that it stands on.
struct NoteServices {
    NoteServices() { settings.setObsidianFolderPath(vault.path()); }

    /// A template of the user's own.
    static ObsidianTemplate regular(const QString& name, const QString& content)
    {
        return {QUuid::createUuid(), name, content, true, TemplateType::regular()};
    }

    /// Makes a note whose file holds its content and nothing else.
    auto create(const QString& text)
    {
        return finished(notes.createNote(text, regular(u"Bare"_qs, u"{{content}}"_qs)));
    }

    ScratchFolder vault;
    FakePlatform edge;
    ObsidianTemplates synced;
    SettingsService settings{edge.defaults, [this] { return synced; }};
    ToastManager toasts{edge.scheduler};
    ToastLog log{toasts};
    TagIndexService index{edge.platform};
    ObsidianService notes{edge.platform, settings, toasts, index};
};

/// The file name of a note at the time at which the clock stands.
inline QString dated(const QString& title)
{
    return title + u" - 2024-03-05 144607.md"_qs;
}

inline ShownToast noteCreated()
{
    return {ToastType::success, 2.0, u"Note created successfully!"_qs};
}

inline ShownToast cannotCreate(const QString& why)
{
    return {ToastType::error, 3.0, u"Can't create a note: "_qs + why};
}

class ObsidianServiceTest : public testing::Test, protected NoteServices {};

} // namespace jotwell

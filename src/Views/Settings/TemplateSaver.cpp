#include "Views/Settings/TemplateSaver.h"

#include "Services/SettingsService.h"
#include "Support/Background.h"

#include <algorithm>
#include <utility>

namespace jotwell {

namespace {

void storeTemplates(const TemplateSave& save, SettingsService& settings,
                    ObsidianTemplates& templates)
{
    templates = settings.obsidianTemplates();
    for (const TemplateChange& change : save.templates)
        templates = applied(change, templates);
    if (save.storesAll || !save.templates.isEmpty())
        settings.setObsidianTemplates(templates);
}

// A value that is stored already is left alone: each write is one of the whole file.
void store(TemplateSaved& outcome, SettingsService& settings)
{
    const TemplateSave& save = outcome.what;
    if (save.folder && *save.folder != settings.templatesFolderPath())
        settings.setTemplatesFolderPath(*save.folder);
    if (save.storesAll)
        settings.setObsidianTemplate(settings.obsidianTemplate());
    storeTemplates(save, settings, outcome.templates);
    for (const TemplateFileChange& change : save.files)
        outcome.files.append({change, change.file->write(change.value.content)});
    for (auto each = save.shown.begin(); each != save.shown.end(); ++each)
        settings.setSyncedTemplateShowInDropdown(each.key(), each.value());
    if (save.lastUsed != settings.lastUsedTemplateId())
        settings.setLastUsedTemplateId(save.lastUsed);
    settings.synchronize();
}

auto textFor(const std::shared_ptr<TemplateFile>& file)
{
    return [&file](const TemplateFileChange& each) { return each.file == file; };
}

} // namespace

TemplateSaver::TemplateSaver(SettingsService& settings, QObject* parent)
    : QObject(parent), m_settings(settings)
{
    m_thread.setMaxThreadCount(1);
}

TemplateSaver::~TemplateSaver()
{
    flush();
}

void TemplateSaver::change(const TemplateFileChange& change)
{
    const auto same =
        std::find_if(m_waiting.files.begin(), m_waiting.files.end(), textFor(change.file));
    if (same == m_waiting.files.end())
        m_waiting.files.append(change);
    else
        *same = change;
}

bool TemplateSaver::isBusyWith(const std::shared_ptr<TemplateFile>& file) const
{
    const auto isIn = [&file](const QList<TemplateFileChange>& files) {
        return std::any_of(files.begin(), files.end(), textFor(file));
    };
    return isIn(m_waiting.files) || (m_running && isIn(m_running->what.files));
}

void TemplateSaver::save(const std::optional<QUuid>& lastUsed)
{
    m_waiting.isAsked = true;
    m_waiting.lastUsed = lastUsed;
    start();
}

void TemplateSaver::flush()
{
    start();
    while (m_running) {
        m_thread.waitForDone();
        takeOverFromBackground();
        finish();
    }
}

void TemplateSaver::start()
{
    if (m_running || !m_waiting.isAsked)
        return;
    m_running = std::make_shared<TemplateSaved>();
    m_running->what = std::exchange(m_waiting, {});
    auto work = [settings = &m_settings, outcome = m_running] {
        store(*outcome, *settings);
        return true;
    };
    QCoro::connect(inBackground(m_thread, std::move(work)), this,
                   [this, running = m_running](bool) {
                       if (running == m_running)
                           finish();
                   });
}

void TemplateSaver::finish()
{
    const auto outcome = std::exchange(m_running, nullptr);
    emit saved(*outcome);
    start();
}

} // namespace jotwell

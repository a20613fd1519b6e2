#include "Views/Settings/SimpleObsidianSettingsView.h"

#include "Platform/FolderPanel.h"
#include "Services/SettingsService.h"
#include "Services/TemplateSyncService.h"
#include "Support/FolderWalk.h"

#include <QFileInfo>
#include <QGuiApplication>

#include <algorithm>

namespace jotwell {

namespace {

TabItem tabOf(const ObsidianTemplate& value)
{
    return {value.id, value.name, QString(),
            value.type.isSynced() ? QStringLiteral("arrow.triangle.2.circlepath") : QString()};
}

QString failureText(const SystemError& error)
{
    return TemplateSyncError{TemplateSyncError::Kind::writeError, error}.errorDescription();
}

QString conflictText(const QString& keptAs)
{
    return QStringLiteral("Another program has changed this file. Its version is kept as “%1”.")
        .arg(QFileInfo(keptAs).fileName());
}

} // namespace

SimpleObsidianSettingsView::SimpleObsidianSettingsView(const TemplateSettingsServices& services,
                                                       QObject* parent)
    : SettingsScreen(parent), m_services(services), m_saver(services.settings)
{
    connect(&m_saver, &TemplateSaver::saved, this,
            [this](const TemplateSaved& saved) { takeOver(saved); });
}

SimpleObsidianSettingsView::~SimpleObsidianSettingsView()
{
    leaveTemplate();
    m_saver.flush();
}

void SimpleObsidianSettingsView::appear()
{
    leaveTemplate(); // an input method may have ended its work after the screen had gone
    if (m_saver.isBusy())
        refresh(); // what stands here is newer than what is stored
    else
        loadObsidianSettings();
    connect(&m_services.templates, &TemplateSyncService::syncedTemplatesChanged, this,
            &SimpleObsidianSettingsView::refresh, Qt::UniqueConnection);
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            &SimpleObsidianSettingsView::refreshWhenActive, Qt::UniqueConnection);
    m_services.templates.loadInBackground(); // a file written in place isn't told of
}

void SimpleObsidianSettingsView::disappear()
{
    m_panel.reset();
    disconnect(qApp, nullptr, this, nullptr);
    leaveTemplate();
    disconnect(&m_services.templates, nullptr, this, nullptr);
    setShowAddTemplate(false);
    setComposing(false);
}

void SimpleObsidianSettingsView::loadObsidianSettings()
{
    m_templatesFolderPath = m_services.settings.templatesFolderPath();
    m_obsidianTemplate = m_services.settings.obsidianTemplate();
    m_templates = m_services.settings.obsidianTemplates();
    m_saver.storeAll();
    emit templatesFolderPathChanged();
    updateTabs();
    const auto lastUsed = m_services.settings.lastUsedTemplateId();
    selectRow(std::max(0, lastUsed ? m_tabs.rowOf(*lastUsed) : 0));
}

// The fields have been copied into the selected template by then.
void SimpleObsidianSettingsView::saveObsidianSettings()
{
    m_saver.save(selectedTemplateId());
}

void SimpleObsidianSettingsView::setTemplatesFolderPath(const QString& path)
{
    if (path == m_templatesFolderPath)
        return;
    m_templatesFolderPath = path;
    emit templatesFolderPathChanged();
    m_saver.setFolder(withHome(path));
    saveObsidianSettings();
}

void SimpleObsidianSettingsView::chooseTemplatesFolder(QWindow* window)
{
    const FolderQuestion question{QStringLiteral("Select a folder containing .md template files"),
                                  QStringLiteral("Select Templates Folder"),
                                  withHome(m_templatesFolderPath)};
    m_panel = std::make_unique<QObject>();
    m_services.folders.choose(question, window, m_panel.get(), [this](const QString& path) {
        m_saver.setFolder(path); // also the one that is set: it is read anew
        m_templatesFolderPath = path;
        emit templatesFolderPathChanged();
        saveObsidianSettings();
    });
}

std::optional<QUuid> SimpleObsidianSettingsView::selectedTemplateId() const
{
    return m_selected ? std::optional(m_selected->id) : std::nullopt;
}

QString SimpleObsidianSettingsView::selectedTabId() const
{
    return m_selected ? m_selected->id.toString() : QString();
}

QString SimpleObsidianSettingsView::editingTemplateName() const
{
    return m_selected ? m_selected->name : QString();
}

QString SimpleObsidianSettingsView::editingTemplateContent() const
{
    return m_selected ? m_selected->content : QString();
}

void SimpleObsidianSettingsView::setEditingTemplateName(const QString& name)
{
    if (!m_selected || isSynced() || name == m_selected->name)
        return;
    ObsidianTemplate edited = *m_selected;
    edited.name = name;
    edit(TemplateChange::name, edited);
}

void SimpleObsidianSettingsView::setEditingTemplateContent(const QString& content)
{
    if (!m_selected || content == m_selected->content)
        return;
    ObsidianTemplate edited = *m_selected;
    edited.content = content;
    if (isSynced() && !m_file)
        m_file = std::make_shared<TemplateFile>(*edited.type.filePath(), m_selected->content,
                                                m_services.templates.files());
    edit(TemplateChange::content, edited);
}

void SimpleObsidianSettingsView::setShowInDropdown(bool showInDropdown)
{
    if (!m_selected || showInDropdown == m_selected->showInDropdown)
        return;
    ObsidianTemplate edited = *m_selected;
    edited.showInDropdown = showInDropdown;
    edit(TemplateChange::showInDropdown, edited);
}

void SimpleObsidianSettingsView::edit(TemplateChange::Field field, const ObsidianTemplate& edited)
{
    m_selected = edited;
    if (!isSynced()) {
        const TemplateChange change{TemplateChange::Kind::edited, edited, field};
        m_templates = applied(change, m_templates);
        m_saver.change(change);
        updateTabs();
    } else if (field == TemplateChange::showInDropdown) {
        m_saver.setShown(edited.id, edited.showInDropdown);
        m_services.templates.setShowInDropdown(edited.id, edited.showInDropdown);
    } else {
        m_saver.change(TemplateFileChange{m_file, edited});
    }
    emit editingChanged();
    saveObsidianSettings();
}

void SimpleObsidianSettingsView::setShowAddTemplate(bool show)
{
    if (show == m_showAddTemplate)
        return;
    m_showAddTemplate = show;
    emit showAddTemplateChanged();
}

void SimpleObsidianSettingsView::setComposing(bool isComposing)
{
    if (isComposing == m_isComposing)
        return;
    m_isComposing = isComposing;
    emit isComposingChanged();
    refresh();
}

void SimpleObsidianSettingsView::selectTab(const QString& id)
{
    const QUuid wanted = QUuid::fromString(id);
    if (selectedTemplateId() == wanted || m_tabs.rowOf(wanted) < 0)
        return;
    leaveTemplate();
    select(templateWith(wanted));
    saveObsidianSettings();
}

void SimpleObsidianSettingsView::addTemplate(const QString& name, const QString& content)
{
    leaveTemplate();
    const ObsidianTemplate added{QUuid::createUuid(),
                                 name.isEmpty() ? QStringLiteral("New Template") : name, content,
                                 true, TemplateType::regular()};
    m_templates.append(added);
    m_saver.change(TemplateChange{TemplateChange::Kind::added, added, 0});
    updateTabs();
    select(added);
    saveObsidianSettings();
    setShowAddTemplate(false);
}

void SimpleObsidianSettingsView::deleteTemplate()
{
    if (!m_selected || isSynced())
        return;
    const int row = m_tabs.rowOf(m_selected->id);
    const TemplateChange change{TemplateChange::Kind::removed, *m_selected, 0};
    m_templates = applied(change, m_templates);
    m_saver.change(change);
    updateTabs();
    selectRow(row);
    saveObsidianSettings();
}

// Whether its text gets into the file is told later; until then it counts as being there.
void SimpleObsidianSettingsView::leaveTemplate()
{
    if (!m_file)
        return;
    saveFile();
    m_file.reset();
    m_services.templates.setComingContent(m_selected->id, m_selected->content);
}

void SimpleObsidianSettingsView::saveFile()
{
    m_saver.change(TemplateFileChange{m_file, *m_selected});
    saveObsidianSettings();
}

void SimpleObsidianSettingsView::keepUnsaved(const ObsidianTemplate& value)
{
    ObsidianTemplate kept = value;
    kept.id = QUuid::createUuid();
    kept.name += QStringLiteral(" (unsaved)");
    kept.type = TemplateType::regular();
    m_templates.append(kept);
    m_saver.change(TemplateChange{TemplateChange::Kind::added, kept, 0});
    saveObsidianSettings();
    m_services.templates.forgetComingContent(value.id);
}

// The one that has taken the place of the one before, or the last one.
void SimpleObsidianSettingsView::selectRow(int row)
{
    const ObsidianTemplates all = allTemplates();
    if (all.isEmpty())
        select(std::nullopt);
    else
        select(all.at(std::clamp(row, 0, static_cast<int>(all.size()) - 1)));
}

void SimpleObsidianSettingsView::select(const std::optional<ObsidianTemplate>& value)
{
    m_file.reset();
    m_selected = value;
    setNotice({});
    emit editingChanged();
    emit selectedTemplateIdChanged();
}

void SimpleObsidianSettingsView::refreshWhenActive(Qt::ApplicationState state)
{
    if (state != Qt::ApplicationActive)
        return;
    if (m_file)
        saveFile();
    if (!m_saver.isBusy())
        m_templates = m_services.settings.obsidianTemplates();
    refresh();
    m_services.templates.loadInBackground();
}

// Others may have changed what is selected, or taken it away.
void SimpleObsidianSettingsView::refresh()
{
    const int row = m_selected ? m_tabs.rowOf(m_selected->id) : 0;
    updateTabs();
    if (m_file || m_isComposing)
        return;
    const auto now = m_selected ? templateWith(m_selected->id) : std::nullopt;
    if (!now) {
        if (m_selected || m_tabs.rowCount() > 0)
            selectRow(row);
    } else if (*now != *m_selected) {
        m_selected = now;
        setNotice({});
        emit editingChanged();
    }
}

ObsidianTemplates SimpleObsidianSettingsView::allTemplates() const
{
    return m_templates + m_services.templates.syncedTemplates();
}

std::optional<ObsidianTemplate> SimpleObsidianSettingsView::templateWith(const QUuid& id) const
{
    const ObsidianTemplates all = allTemplates();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&id](const ObsidianTemplate& each) { return each.id == id; });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

void SimpleObsidianSettingsView::updateTabs()
{
    const ObsidianTemplates all = allTemplates();
    QList<TabItem> items;
    items.reserve(all.size());
    std::transform(all.begin(), all.end(), std::back_inserter(items), tabOf);
    m_tabs.setItems(items);
}

void SimpleObsidianSettingsView::takeOver(const TemplateSaved& saved)
{
    for (const TemplateSaved::File& file : saved.files)
        file.outcome ? takeOver(file) : takeFailure(file);
    for (auto each = saved.what.shown.begin(); each != saved.what.shown.end(); ++each) {
        if (!m_saver.hasLaterShown(each.key()))
            m_services.templates.setShowInDropdown(each.key(), each.value());
    }
    if (saved.what.folder)
        m_services.templates.followFolder();
    if (!m_saver.isBusy())
        m_templates = saved.templates;
    refresh();
}

void SimpleObsidianSettingsView::takeOver(const TemplateSaved::File& file)
{
    const ObsidianTemplate& written = file.change.value;
    const bool isSelected = file.change.file == m_file;
    const std::optional<QString>& kept = *file.outcome;
    const bool isLatest = !m_saver.isBusyWith(file.change.file);
    if (isSelected && isLatest && m_selected->content == written.content)
        m_file.reset();
    if (isSelected && (kept || m_hasFailed))
        setNotice(kept ? conflictText(*kept) : QString());
    if (isLatest)
        m_services.templates.setContent(written.id, written.content);
    if (kept)
        m_services.templates.loadInBackground();
}

// A template that the user has left has no field to keep its text.
void SimpleObsidianSettingsView::takeFailure(const TemplateSaved::File& file)
{
    if (file.change.file == m_file)
        setNotice(failureText(file.outcome.error()), true);
    else if (!m_saver.isBusyWith(file.change.file))
        keepUnsaved(file.change.value);
}

void SimpleObsidianSettingsView::setNotice(const QString& notice, bool isFailure)
{
    m_hasFailed = isFailure;
    if (notice == m_notice)
        return;
    m_notice = notice;
    emit noticeChanged();
}

} // namespace jotwell

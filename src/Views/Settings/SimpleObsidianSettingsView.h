#pragma once

#include "Views/Controls/TabItems.h"
#include "Views/Settings/SettingsScreen.h"
#include "Views/Settings/TemplateSaver.h"

#include <QWindow>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

class FolderPanel;
class SettingsService;
class TemplateSyncService;

/// What the templates' screen reads and changes; all of it outlives the screen.
struct TemplateSettingsServices {
    SettingsService& settings;
    TemplateSyncService& templates;
    FolderPanel& folders;
};

/// The screen of new notes: the templates, and the folder that more of them come from. Main thread.
///
/// Each change is stored at once, and nothing but what the user has changed here: the rest of the
/// templates, and of a template, stays as others have left it, though the first save writes it.
/// What others change is shown here unless the user is in the middle of an edit. A text whose file
/// has been changed by others meanwhile takes its place all the same, and their version is kept
/// beside it, see `TemplateFile`. A text that can't be written to its file stays in the field, is
/// tried again with each edit, and becomes a template of the user's own when they leave it. Only
/// the end of the screen waits for the disk.
class SimpleObsidianSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(SimpleObsidianSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

    Q_PROPERTY(QString templatesFolderPath READ templatesFolderPath WRITE setTemplatesFolderPath
                   NOTIFY templatesFolderPathChanged)
    Q_PROPERTY(jotwell::TabItems* tabs READ tabs CONSTANT)
    Q_PROPERTY(QString selectedTabId READ selectedTabId NOTIFY selectedTemplateIdChanged)
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY selectedTemplateIdChanged)
    Q_PROPERTY(bool isSynced READ isSynced NOTIFY selectedTemplateIdChanged)
    Q_PROPERTY(QString editingTemplateName READ editingTemplateName WRITE setEditingTemplateName
                   NOTIFY editingChanged)
    Q_PROPERTY(QString editingTemplateContent READ editingTemplateContent WRITE
                   setEditingTemplateContent NOTIFY editingChanged)
    Q_PROPERTY(
        bool showInDropdown READ showInDropdown WRITE setShowInDropdown NOTIFY editingChanged)
    Q_PROPERTY(bool showAddTemplate READ showAddTemplate WRITE setShowAddTemplate NOTIFY
                   showAddTemplateChanged)
    Q_PROPERTY(bool isComposing READ isComposing WRITE setComposing NOTIFY isComposingChanged)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged)

public:
    explicit SimpleObsidianSettingsView(const TemplateSettingsServices& services,
                                        QObject* parent = nullptr);
    /// Stores what isn't stored yet.
    ~SimpleObsidianSettingsView() override;

    /// As it stands in the field; empty for none.
    [[nodiscard]] const QString& templatesFolderPath() const { return m_templatesFolderPath; }
    void setTemplatesFolderPath(const QString& path);
    /// The text of the one template of old, which no field shows.
    [[nodiscard]] const QString& obsidianTemplate() const { return m_obsidianTemplate; }
    /// The user's own templates; behind them, the tabs show the synced ones.
    [[nodiscard]] const ObsidianTemplates& templates() const { return m_templates; }
    [[nodiscard]] TabItems* tabs() { return &m_tabs; }
    [[nodiscard]] std::optional<QUuid> selectedTemplateId() const;
    [[nodiscard]] QString selectedTabId() const;
    [[nodiscard]] bool hasSelection() const { return m_selected.has_value(); }
    [[nodiscard]] bool isSynced() const { return m_selected && m_selected->type.isSynced(); }

    // Of the selected template; the name of a synced one is its file's.
    [[nodiscard]] QString editingTemplateName() const;
    void setEditingTemplateName(const QString& name);
    [[nodiscard]] QString editingTemplateContent() const;
    void setEditingTemplateContent(const QString& content);
    [[nodiscard]] bool showInDropdown() const { return m_selected && m_selected->showInDropdown; }
    void setShowInDropdown(bool showInDropdown);

    [[nodiscard]] bool showAddTemplate() const { return m_showAddTemplate; }
    void setShowAddTemplate(bool show);
    /// An input method is at work in one of the fields: they are left alone.
    [[nodiscard]] bool isComposing() const { return m_isComposing; }
    void setComposing(bool isComposing);
    /// What the user is to know of the selected template's file; mostly empty.
    [[nodiscard]] const QString& notice() const { return m_notice; }

    void appear() override;
    void disappear() override;

    Q_INVOKABLE void selectTab(const QString& id);
    /// An empty name becomes "New Template".
    Q_INVOKABLE void addTemplate(const QString& name, const QString& content);
    /// The selected one, unless it is synced.
    Q_INVOKABLE void deleteTemplate();
    /// In a panel that belongs to `window`.
    Q_INVOKABLE void chooseTemplatesFolder(QWindow* window);

    void loadObsidianSettings();
    void saveObsidianSettings();
    /// Comes back once all that was changed is stored.
    void waitUntilStored() { m_saver.flush(); }

signals:
    void templatesFolderPathChanged();
    /// Told before the selection is, if both have changed.
    void editingChanged();
    void selectedTemplateIdChanged();
    void showAddTemplateChanged();
    void isComposingChanged();
    void noticeChanged();

private:
    [[nodiscard]] ObsidianTemplates allTemplates() const;
    [[nodiscard]] std::optional<ObsidianTemplate> templateWith(const QUuid& id) const;
    void select(const std::optional<ObsidianTemplate>& value);
    void selectRow(int row);
    void edit(TemplateChange::Field field, const ObsidianTemplate& edited);
    void saveFile();
    void leaveTemplate();
    void keepUnsaved(const ObsidianTemplate& value);
    void refresh();
    void refreshWhenActive(Qt::ApplicationState state);
    void updateTabs();
    void takeOver(const TemplateSaved& saved);
    void takeOver(const TemplateSaved::File& file);
    void takeFailure(const TemplateSaved::File& file);
    void setNotice(const QString& notice, bool isFailure = false);

    TemplateSettingsServices m_services;
    QString m_templatesFolderPath;
    QString m_obsidianTemplate;
    ObsidianTemplates m_templates;
    TabItems m_tabs;
    std::optional<ObsidianTemplate> m_selected; ///< as it stands in the fields
    std::shared_ptr<TemplateFile> m_file;       ///< of the selected one, while its text isn't in it
    bool m_showAddTemplate = false;
    bool m_isComposing = false;
    QString m_notice;
    bool m_hasFailed = false;         ///< is what the notice tells
    std::unique_ptr<QObject> m_panel; ///< the panel closes with it
    TemplateSaver m_saver;
};

} // namespace jotwell

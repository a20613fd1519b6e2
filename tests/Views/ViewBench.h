#pragma once

#include "Fakes/FakePlatform.h"
#include "Services/CommandService.h"
#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Services/TagIndexService.h"
#include "Services/TemplateSyncService.h"
#include "Services/ToastManager.h"
#include "Views/FloatingWindowView.h"

#include <QObject>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QVariant>

#include <memory>

namespace jotwell {

/// The capture window's state over real services, an empty vault and a clock of our own; what QML
/// tests need of it is invokable.
class ViewBench : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* view READ view CONSTANT)
    Q_PROPERTY(QObject* editor READ editor CONSTANT)
    Q_PROPERTY(QObject* toasts READ toasts CONSTANT)
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool forceTextUpdate READ forceTextUpdate WRITE setForceTextUpdate)
    Q_PROPERTY(int noteCount READ noteCount)
    Q_PROPERTY(int toastCount READ toastCount)

public:
    explicit ViewBench(QObject* parent = nullptr);
    ~ViewBench() override;

    FakePlatform fake;
    QTemporaryDir vault;
    ToastManager toastManager{fake.scheduler};
    SettingsService settings{fake.defaults, [] { return ObsidianTemplates(); }};
    TagIndexService index{fake.platform};
    ObsidianService notes{fake.platform, settings, toastManager, index};
    CommandService commands{notes, settings, toastManager, fake.background};
    TemplateSyncService templates{fake.platform, settings};
    FloatingWindowView floatingWindowView{
        InputServices{commands, settings, notes, index, templates, fake.scheduler}, toastManager};

    [[nodiscard]] CommandTemplateState& state()
    {
        return floatingWindowView.commandTemplateState();
    }

    [[nodiscard]] QObject* view() { return &floatingWindowView; }
    [[nodiscard]] QObject* editor() { return floatingWindowView.editor(); }
    [[nodiscard]] QObject* toasts() { return floatingWindowView.toasts(); }
    [[nodiscard]] QString text() { return state().text(); }
    void setText(const QString& text) { state().setText(text); }
    [[nodiscard]] bool forceTextUpdate() { return state().forceTextUpdate(); }
    void setForceTextUpdate(bool force) { state().setForceTextUpdate(force); }
    [[nodiscard]] int noteCount() const;
    [[nodiscard]] int toastCount() const { return m_toastCount; }

    Q_INVOKABLE void advance(int milliseconds);
    Q_INVOKABLE void showSuccess(const QString& message) { toastManager.showSuccess(message); }
    Q_INVOKABLE void showWarning(const QString& message) { toastManager.showWarning(message); }
    Q_INVOKABLE void showError(const QString& message) { toastManager.showError(message); }
    Q_INVOKABLE void appear() { floatingWindowView.appear(); }
    /// As many notes as a command may find; the view has to have appeared.
    Q_INVOKABLE void deliver(int count);
    /// A build of the index that goes on until it is let finish.
    Q_INVOKABLE void startBuild();
    Q_INVOKABLE void finishBuild();
    /// An input method's step in the item that has the keyboard: what it composes, what it commits.
    Q_INVOKABLE void compose(const QString& preedit, const QString& commit = {});
    /// As another program would, which knows both forms of a text.
    Q_INVOKABLE void copyToClipboard(const QString& html, const QString& text);

private:
    int m_toastCount = 0;
    std::shared_ptr<QSemaphore> m_gate; ///< before which a build waits
};

} // namespace jotwell

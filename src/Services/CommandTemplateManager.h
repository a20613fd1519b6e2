#pragma once

#include "Models/ObsidianTemplate.h"

#include <QCoroTask>

#include <QObject>

#include <optional>

namespace jotwell {

class CommandService;

/// The state behind the capture window's text field: its text, and what the input language makes of
/// it. Main thread only; owned by the capture window's view.
class CommandTemplateState : public QObject {
    Q_OBJECT

public:
    explicit CommandTemplateState(CommandService& commandService, QObject* parent = nullptr);

    [[nodiscard]] const QString& text() const { return m_text; }
    void setText(const QString& text);

    /// The editor is to take `text` over, also while the user types; the editor takes it back.
    [[nodiscard]] bool forceTextUpdate() const { return m_forceTextUpdate; }
    void setForceTextUpdate(bool force);

    /// The template that the text now carries.
    [[nodiscard]] const std::optional<ObsidianTemplate>& currentTemplate() const
    {
        return m_currentTemplate;
    }
    void setCurrentTemplate(std::optional<ObsidianTemplate> value);

    /// Runs the command that the text holds; false if it holds none or the command failed. A
    /// command that succeeded leaves the text empty, a failed one leaves it as it is.
    QCoro::Task<bool> executeCommand();

signals:
    void textChanged();
    void forceTextUpdateChanged();
    void currentTemplateChanged();

private:
    CommandService& m_commandService;
    QString m_text;
    bool m_forceTextUpdate = false;
    std::optional<ObsidianTemplate> m_currentTemplate;
};

} // namespace jotwell

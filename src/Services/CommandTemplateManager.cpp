#include "Services/CommandTemplateManager.h"

#include "Services/CommandService.h"

#include <QPointer>

namespace jotwell {

CommandTemplateState::CommandTemplateState(CommandService& commandService, QObject* parent)
    : QObject(parent), m_commandService(commandService)
{
}

void CommandTemplateState::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    emit textChanged();
}

void CommandTemplateState::setForceTextUpdate(bool force)
{
    if (m_forceTextUpdate == force)
        return;
    m_forceTextUpdate = force;
    emit forceTextUpdateChanged();
}

void CommandTemplateState::setCurrentTemplate(std::optional<ObsidianTemplate> value)
{
    if (m_currentTemplate == value)
        return;
    m_currentTemplate = std::move(value);
    emit currentTemplateChanged();
}

QCoro::Task<bool> CommandTemplateState::executeCommand()
{
    const auto command = m_commandService.findCommand(m_text);
    if (!command)
        co_return false;
    const QPointer self(this);
    const bool success = co_await m_commandService.executeCommand(*command, m_text);
    if (success && self) {
        setText(QString());
        setForceTextUpdate(true);
        setCurrentTemplate(std::nullopt);
    }
    co_return success;
}

} // namespace jotwell

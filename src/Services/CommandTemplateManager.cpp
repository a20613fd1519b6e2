#include "Services/CommandTemplateManager.h"

#include "Services/CommandService.h"

#include <QPointer>

namespace jotwell {

CommandTemplateState::CommandTemplateState(const InputServices& services, QObject* parent)
    : QObject(parent), m_services(services)
{
}

template <typename T>
void CommandTemplateState::set(T CommandTemplateFields::*member, Field field, T value)
{
    if (m_fields.*member == value)
        return;
    m_fields.*member = std::move(value);
    emit changed(field);
}

void CommandTemplateState::setText(const QString& text)
{
    set(&CommandTemplateFields::text, Field::text, text);
}

void CommandTemplateState::setForceTextUpdate(bool force)
{
    set(&CommandTemplateFields::forceTextUpdate, Field::forceTextUpdate, force);
}

void CommandTemplateState::setCurrentTemplate(std::optional<ObsidianTemplate> value)
{
    set(&CommandTemplateFields::currentTemplate, Field::currentTemplate, std::move(value));
}

QCoro::Task<bool> CommandTemplateState::executeCommand()
{
    const auto command = m_services.commands.findCommand(text());
    if (!command)
        co_return false;
    const QPointer self(this);
    const bool success = co_await m_services.commands.executeCommand(*command, text());
    if (success && self) {
        setText(QString());
        setForceTextUpdate(true);
        setCurrentTemplate(std::nullopt);
    }
    co_return success;
}

} // namespace jotwell

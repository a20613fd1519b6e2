#include "Views/Settings/SettingsBench.h"

#include <QCoreApplication>
#include <QFile>
#include <QKeyEvent>
#include <QQuickWindow>

namespace jotwell {

void SettingsBench::key(QQuickItem* item, bool isDown, int key, int modifiers, int keyCode)
{
    QKeyEvent event(isDown ? QEvent::KeyPress : QEvent::KeyRelease, key,
                    Qt::KeyboardModifiers(modifiers), static_cast<quint32>(keyCode), 0, 0);
    QCoreApplication::sendEvent(item->window(), &event);
}

void SettingsBench::putTemplateUnseen(const QString& name, const QString& text)
{
    QFile file(templatesFolder.filePath(name + QStringLiteral(".md")));
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
}

void SettingsBench::putTemplate(const QString& name, const QString& text)
{
    putTemplateUnseen(name, text);
    settings.setTemplatesFolderPath(templatesFolder.path());
    templates.loadSyncedTemplates();
}

QString SettingsBench::templateText(const QString& name) const
{
    QFile file(templatesFolder.filePath(name + QStringLiteral(".md")));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList SettingsBench::storedTemplates() const
{
    QStringList names;
    for (const ObsidianTemplate& each : settings.obsidianTemplates())
        names.append(each.name);
    return names;
}

} // namespace jotwell

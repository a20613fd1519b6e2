#include "Views/Settings/SettingsBench.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QQuickWindow>

#include <utility>

namespace jotwell {

SettingsBench::SettingsBench(QObject* parent) : QObject(parent)
{
    fake.bulk.setMaxThreadCount(1);
    connect(&index, &TagIndexService::isIndexingChanged, this,
            [this] { m_builds += index.isIndexing() ? 1 : 0; });
}

// A build that another has overtaken goes on to its next waiting point, and uses the pools there.
SettingsBench::~SettingsBench()
{
    finishBuilds();
    for (int turn = 0; turn < 5; ++turn) {
        fake.bulk.waitForDone();
        fake.background.waitForDone();
        QCoreApplication::processEvents();
    }
}

QString SettingsBench::makeVault(const QString& name, int notes)
{
    const QString path = folder.filePath(name);
    QDir().mkpath(path);
    for (int note = 0; note < notes; ++note) {
        QFile file(path + QStringLiteral("/%1.md").arg(note));
        file.open(QIODevice::WriteOnly);
    }
    return path;
}

// All threads of the pool are one: what is started behind the gate waits for it.
void SettingsBench::holdBuilds()
{
    ++m_heldBuilds;
    fake.bulk.start([this] { m_gate.acquire(); });
}

void SettingsBench::finishBuilds()
{
    m_gate.release(std::exchange(m_heldBuilds, 0));
    while (index.isIndexing())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

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

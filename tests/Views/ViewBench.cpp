#include "Views/ViewBench.h"

#include <QCoroTask>

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>

#include <utility>

namespace jotwell {

ViewBench::ViewBench(QObject* parent) : QObject(parent)
{
    settings.setObsidianFolderPath(vault.path());
    connect(&toastManager, &ToastManager::shown, this, [this] { ++m_toastCount; });
}

// What is under way would come back to services that are gone.
ViewBench::~ViewBench()
{
    finishBuild();
    // A piece of work may start the next one, and be over before anyone sees it.
    constexpr int longestChain = 5;
    for (int link = 0; link < longestChain; ++link) {
        fake.background.waitForDone();
        QCoreApplication::processEvents();
    }
}

int ViewBench::noteCount() const
{
    return static_cast<int>(QDir(vault.path()).entryList(QDir::Files).size());
}

void ViewBench::advance(int milliseconds)
{
    fake.scheduler.advance(std::chrono::milliseconds(milliseconds));
}

void ViewBench::deliver(int count)
{
    NoteSearchResults notes;
    for (int each = 0; each < count; ++each)
        notes.append(NoteSearchResult::forPath(QStringLiteral("/v/%1.md").arg(each)));
    commands.onSearchResults()(notes);
}

void ViewBench::startBuild()
{
    fake.bulk.setMaxThreadCount(1);
    m_gate = std::make_shared<QSemaphore>();
    fake.bulk.start([gate = m_gate] { gate->acquire(); });
    QCoro::connect(index.buildIndex(vault.path()), this, [] {});
    advance(16);
}

void ViewBench::finishBuild()
{
    if (const auto gate = std::exchange(m_gate, nullptr))
        gate->release();
    while (index.isIndexing())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    advance(16);
}

void ViewBench::compose(const QString& preedit, const QString& commit)
{
    QInputMethodEvent step(preedit, {});
    step.setCommitString(commit);
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &step);
}

void ViewBench::copyToClipboard(const QString& html, const QString& text)
{
    auto* const data = new QMimeData;
    data->setHtml(html);
    data->setText(text);
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace jotwell

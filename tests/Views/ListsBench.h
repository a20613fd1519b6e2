#pragma once

#include "Fakes/FakeAppearance.h"
#include "Views/ViewBench.h"

#include <QQuickItem>
#include <QStringList>

namespace jotwell {

/// The capture window's state with as many rows in its lists as a test asks for.
class ListsBench : public ViewBench {
    Q_OBJECT

public:
    explicit ListsBench(QObject* parent = nullptr);
    ~ListsBench() override;

    /// What the user has written by now.
    Q_INVOKABLE void write(const QString& text);
    Q_INVOKABLE void arrow(const QString& direction);
    Q_INVOKABLE void close();
    /// "f000" and so on.
    Q_INVOKABLE void makeFolders(int count);
    /// With names so long.
    Q_INVOKABLE void addTemplates(int count, int nameLength = 8);
    /// Notes at these paths with these snippets; an empty snippet is none.
    Q_INVOKABLE void showNotes(const QStringList& paths, const QStringList& snippets = {});
    Q_INVOKABLE void selectNote(int index);
    Q_INVOKABLE void scrollToNote(const QString& direction);

    /// The pointer's shape in the window of `item`.
    Q_INVOKABLE static Qt::CursorShape cursorShapeOver(QQuickItem* item);

    /// The desktop's appearance changes.
    Q_INVOKABLE void setDark(bool isDark);
    /// As while the panel is shown.
    Q_INVOKABLE void watchKeys(bool isShown) { floatingWindowView.results()->setShown(isShown); }

private:
    FakeAppearance m_desktop;
};

} // namespace jotwell

#include "Gallery.h"

#include "Platform/KeyNames.h"
#include "Platform/NativeParts.h"
#include "Views/ViewResources.h"

#include <QGuiApplication>
#include <QQuickView>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace jotwell {

using namespace std::chrono_literals;

namespace {

constexpr auto longestMovement = 1500ms;

QStringList texts(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

// The scale has to be known before there is an application that could tell its arguments.
Gallery::Gallery(int& argc, char** argv, const QList<QCommandLineOption>& own)
{
    m_parser.addOptions({{QStringLiteral("screenshot"), QString(), QStringLiteral("file")},
                         {QStringLiteral("scale"), QString(), QStringLiteral("factor")},
                         {QStringLiteral("dark"), QString()},
                         {QStringLiteral("high-contrast"), QString()}});
    m_parser.addOptions(own);
    if (!m_parser.parse(texts(argc, argv))) {
        std::fprintf(stderr, "%s\n", qPrintable(m_parser.errorText()));
        std::exit(2);
    }
    if (const QString scale = value("scale"); !scale.isEmpty())
        qputenv("QT_SCALE_FACTOR", scale.toUtf8());
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    m_application = std::make_unique<QGuiApplication>(argc, argv);
    installFonts();
    m_appearance.setDark(m_parser.isSet(QStringLiteral("dark")));
    m_appearance.setHighContrast(m_parser.isSet(QStringLiteral("high-contrast")));
    m_keyNames = makeKeyNames();
    m_looks = std::make_unique<DesktopLooks>(m_appearance, *m_keyNames);
}

Gallery::~Gallery() = default;

QString Gallery::value(const char* option) const
{
    return m_parser.value(QString::fromLatin1(option));
}

int Gallery::run(QQuickView& view)
{
    if (view.status() != QQuickView::Ready)
        return 1;
    view.show();
    if (const QString file = value("screenshot"); !file.isEmpty()) {
        QTimer::singleShot(longestMovement, &view, [&view, file] {
            QGuiApplication::exit(view.grabWindow().save(file) ? 0 : 1);
        });
    }
    return QGuiApplication::exec();
}

} // namespace jotwell

#include "GalleryAppearance.h"
#include "Views/Appearance.h"
#include "Views/ViewResources.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickView>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>
#include <cstdlib>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;

namespace {

struct Options {
    QString screenshot;
    bool dark = false;
    bool highContrast = false;
    QByteArray scale;
};

// The scale has to be known before there is an application that could tell its arguments.
QStringList texts(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

Options parsed(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOptions({{QStringLiteral("screenshot"), QString(), QStringLiteral("file")},
                       {QStringLiteral("dark"), QString()},
                       {QStringLiteral("high-contrast"), QString()},
                       {QStringLiteral("scale"), QString(), QStringLiteral("factor")}});
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "%s\n", qPrintable(parser.errorText()));
        std::exit(2);
    }
    return {parser.value(QStringLiteral("screenshot")), parser.isSet(QStringLiteral("dark")),
            parser.isSet(QStringLiteral("high-contrast")),
            parser.value(QStringLiteral("scale")).toUtf8()};
}

/// Once everything that moves has come to rest.
void takeScreenshot(QQuickView& view, const QString& file)
{
    QTimer::singleShot(
        700, &view, [&view, file] { QGuiApplication::exit(view.grabWindow().save(file) ? 0 : 1); });
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = parsed(texts(argc, argv));
    if (!options.scale.isEmpty())
        qputenv("QT_SCALE_FACTOR", options.scale);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication app(argc, argv);
    installFonts();

    GalleryAppearance appearance;
    appearance.setDark(options.dark);
    appearance.setHighContrast(options.highContrast);
    Appearance::ofAllViews().follow(&appearance);

    int result = 0;
    {
        QQuickView view;
        installViewResources(*view.engine());
        view.setTitle(QStringLiteral("Control gallery"));
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.setInitialProperties(
            {{QStringLiteral("appearance"), QVariant::fromValue(&appearance)}});
        view.setSource(
            QUrl(QStringLiteral("qrc:/qt-project.org/imports/JotwellGallery/ControlGallery.qml")));
        if (view.status() != QQuickView::Ready)
            return 1;
        view.show();
        if (!options.screenshot.isEmpty())
            takeScreenshot(view, options.screenshot);
        result = QGuiApplication::exec();
    }
    Appearance::ofAllViews().follow(nullptr);
    return result;
}

#include "Gallery.h"
#include "Views/ViewResources.h"

#include <QQmlEngine>
#include <QQuickView>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;

int main(int argc, char** argv)
{
    Gallery gallery(argc, argv);
    QQuickView view;
    installViewResources(*view.engine());
    view.setTitle(QStringLiteral("Control gallery"));
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setInitialProperties(
        {{QStringLiteral("appearance"), QVariant::fromValue(&gallery.appearance())}});
    view.setSource(
        QUrl(QStringLiteral("qrc:/qt-project.org/imports/JotwellGallery/ControlGallery.qml")));
    return gallery.run(view);
}

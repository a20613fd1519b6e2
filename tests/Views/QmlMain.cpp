#include "Views/IndexBench.h"
#include "Views/ListsBench.h"
#include "Views/Onboarding/OnboardingBench.h"
#include "Views/Settings/SettingsBench.h"
#include "Views/ShortcutsBench.h"
#include "Views/ViewBench.h"
#include "Views/ViewResources.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest/quicktest.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

namespace {

/// Gives each test file the types that it is built on.
class Setup : public QObject {
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine)
    {
        jotwell::installViewResources(*engine);
        qmlRegisterType<jotwell::IndexBench>("JotwellTest", 1, 0, "IndexBench");
        qmlRegisterType<jotwell::ShortcutsBench>("JotwellTest", 1, 0, "ShortcutsBench");
        qmlRegisterType<jotwell::SettingsBench>("JotwellTest", 1, 0, "SettingsBench");
        qmlRegisterType<jotwell::ListsBench>("JotwellTest", 1, 0, "ListsBench");
        qmlRegisterType<jotwell::OnboardingBench>("JotwellTest", 1, 0, "OnboardingBench");
        qmlRegisterType<jotwell::ViewBench>("JotwellTest", 1, 0, "ViewBench");
    }
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QTEST_SET_MAIN_SOURCE_PATH
    Setup setup;
    return quick_test_main_with_setup(argc, argv, "Jotwell", nullptr, &setup);
}

#include "QmlMain.moc"

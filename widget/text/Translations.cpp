#include "text/Translations.h"

#include <QGuiApplication>
#include <QLocale>
#include <QTranslator>

namespace featurebrowser {

namespace {

const QString directory = QStringLiteral(":/zqfeaturebrowserwidget");

} // namespace

// The translators belong to the application object and live as long as it does. English is one of
// them for its plural forms; the one installed last is asked first.
void loadTranslations()
{
    QCoreApplication* application = QCoreApplication::instance();
    const QString name = QStringLiteral("zqfeaturebrowserwidget");
    if (application == nullptr || application->findChild<QTranslator*>(name) != nullptr) {
        return;
    }
    // A new translator makes Qt guess the direction of the script again, over the application's own
    // choice.
    const Qt::LayoutDirection direction = QGuiApplication::layoutDirection();
    auto* english = new QTranslator(application);
    english->setObjectName(name);
    if (english->load(QStringLiteral("widget_en"), directory)) {
        QCoreApplication::installTranslator(english);
    }
    auto* own = new QTranslator(application);
    if (own->load(QLocale(), QStringLiteral("widget"), QStringLiteral("_"), directory)) {
        QCoreApplication::installTranslator(own);
    }
    QGuiApplication::setLayoutDirection(direction);
}

} // namespace featurebrowser

#include "app/italian.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace orlo
{

void SpeakItalian(QCoreApplication& application)
{
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    auto* const translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_it"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

}  // namespace orlo

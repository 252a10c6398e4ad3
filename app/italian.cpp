#include "app/italian.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <clocale>

namespace orlo
{

void SpeakItalian(QCoreApplication& application)
{
    // The system's reasons in Italian too, where its texts are installed.
    std::setlocale(LC_MESSAGES, "it_IT.UTF-8");
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    auto* const translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_it"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

}  // namespace orlo

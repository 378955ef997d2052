#include "text/StandardTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

void installStandardTexts() {
    auto* texts = new QTranslator(QCoreApplication::instance());
    if (texts->load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(texts);
}

#include "text/Fonts.h"

#include <QFont>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

void installFontSubstitutions() {
    const auto substitute = [](const QString& family, const QString& replacement) {
        if (!QFontDatabase::hasFamily(family)) QFont::insertSubstitution(family, replacement);
    };
    substitute(u"ＭＳ ゴシック"_s, u"IPAGothic"_s);
    substitute(u"ＭＳ Ｐゴシック"_s, u"IPAPGothic"_s);
}

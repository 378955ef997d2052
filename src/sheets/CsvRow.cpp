#include "sheets/CsvRow.h"

#include <algorithm>

#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

QString quoted(QString text) {
    static const QString special = u",\"\r\n"_s;
    const bool plain = std::ranges::none_of(text, [](QChar letter) { return special.contains(letter); });
    return plain ? text : u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

} // namespace

QString csvRow(const QStringList& cells) {
    QStringList row;
    for (const auto& cell : cells) row << quoted(cellOfText(cell));
    return row.join(u',') + u"\r\n"_s;
}

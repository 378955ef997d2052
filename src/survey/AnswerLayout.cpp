#include "survey/AnswerLayout.h"

#include <QHash>
#include <array>

#include "judgement/ComparisonScale.h"
#include "text/TextConversion.h"

namespace AnswerLayout {

QString heading(Column column) {
    static const std::array<QString, columns> headings{u"目的番号"_s, u"組"_s,       u"左の要因"_s,
                                                       u"回答"_s,     u"右の要因"_s, u"回答の意味"_s,
                                                       u"左番号"_s,   u"右番号"_s};
    return headings.at(column);
}

QString choice(int position) {
    if (position == equalPosition) return u"同じ"_s;
    return (position < equalPosition ? u"左が %1"_s : u"右が %1"_s).arg(degreeAt(position));
}

namespace {

QString withoutBlanks(const QString& text) {
    return toHalfWidth(text).remove(u' ');
}

} // namespace

std::optional<int> positionOf(const QString& answer) {
    static const auto positions = [] {
        QHash<QString, int> known;
        for (int position = 0; position < scalePositions; ++position)
            known[withoutBlanks(choice(position))] = position;
        return known;
    }();
    const auto found = positions.constFind(withoutBlanks(answer));
    return found == positions.constEnd() ? std::nullopt : std::optional(*found);
}

} // namespace AnswerLayout

#include "widgets/Colours.h"

#include <QPalette>

QColor textOverBase(const QPalette& palette, double share) {
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const auto mixed = [share](float over, float under) {
        return static_cast<float>(share) * over + static_cast<float>(1 - share) * under;
    };
    return QColor::fromRgbF(mixed(text.redF(), base.redF()), mixed(text.greenF(), base.greenF()),
                            mixed(text.blueF(), base.blueF()));
}

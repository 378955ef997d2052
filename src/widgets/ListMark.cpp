#include "widgets/ListMark.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

QIcon listMark(const QWidget& list, bool done) {
    const int side = list.style()->pixelMetric(QStyle::PM_SmallIconSize);
    QPixmap picture(QSize(side, side) * list.devicePixelRatioF());
    picture.setDevicePixelRatio(list.devicePixelRatioF());
    picture.fill(Qt::transparent);
    if (!done) return picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(list.palette().text(), side / 8.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{{side * 0.15, side * 0.55}, {side * 0.4, side * 0.8}, {side * 0.85, side * 0.2}});
    return picture;
}

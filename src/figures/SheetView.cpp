#include "figures/SheetView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 10;       // between sheets
constexpr double margin = 20; // of a sheet, 1/96 inch at full size

double scaleFor(int width) {
    return (width - 2 * gap) / (FigureSheet::width + 2 * margin);
}

} // namespace

// White whatever the palette is: it shows what is printed.
class SheetView::Paper : public QWidget {
  public:
    void setSheets(std::vector<FigureSheet> sheets, const QString& hint) {
        sheets_ = std::move(sheets);
        hint_ = hint;
        QString words = hint;
        for (const auto& sheet : sheets_) words += sheet.words;
        setAccessibleName(sheets_.empty() ? u"図"_s : sheets_.front().figure);
        setAccessibleDescription(words);
        fit(width());
        update();
    }
    void fit(int width) {
        const auto count = static_cast<int>(sheets_.size());
        resize(width, std::max(80, static_cast<int>(gap + count * pitch(width))));
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (sheets_.empty())
            painter.drawText(rect().adjusted(gap, gap, -gap, -gap), Qt::AlignCenter | Qt::TextWordWrap,
                             hint_);
        const double scale = scaleFor(width());
        for (std::size_t i = 0; i < sheets_.size(); ++i) {
            const QRectF paper(gap, gap + static_cast<double>(i) * pitch(width()), width() - 2 * gap,
                               pitch(width()) - gap);
            if (!paper.intersects(event->rect())) continue;
            painter.fillRect(paper, Qt::white);
            sheets_[i].draw(painter, QRectF(paper.topLeft() + QPointF(margin, margin) * scale,
                                            QSizeF(FigureSheet::width, FigureSheet::height) * scale));
        }
    }

  private:
    // From one sheet to the next.
    static double pitch(int width) { return (FigureSheet::height + 2 * margin) * scaleFor(width) + gap; }

    std::vector<FigureSheet> sheets_;
    QString hint_;
};

SheetView::SheetView(QWidget* parent) : QScrollArea(parent), paper_(new Paper) {
    setWidget(paper_); // which it owns from here on
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumSize(760, 560);
}

void SheetView::show(std::vector<FigureSheet> sheets) {
    paper_->setSheets(std::move(sheets), {});
    verticalScrollBar()->setValue(0);
    verticalScrollBar()->setSingleStep(40);
}

void SheetView::show(const QString& hint) {
    paper_->setSheets({}, hint);
}

void SheetView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    paper_->fit(viewport()->width());
}

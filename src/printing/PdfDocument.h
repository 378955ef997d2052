// A document of A4 pages that is drawn in millimetres and kept in memory as PDF.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QFont>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <functional>
#include <utility>

// Positions are millimetres from the upper left edge of the paper. A page comes into being with the first
// thing drawn on it, so ending a page twice, or ending the last one, leaves no empty page.
class PdfDocument {
  public:
    explicit PdfDocument(const QString& title);
    ~PdfDocument();
    PdfDocument(const PdfDocument&) = delete;
    PdfDocument& operator=(const PdfDocument&) = delete;

    // Of the family at 10 pt.
    void setFont(const QString& family);
    // Holds for the pages that begin from now on.
    void setOrientation(QPageLayout::Orientation orientation) { orientation_ = orientation; }

    void text(QPointF topLeft, const QString& text);
    double textWidth(const QString& text) const;
    void line(QPointF from, QPointF to, double width);
    // `content` draws what it likes into the frame, which it is given in the painter's own units.
    void draw(const QRectF& frame, const std::function<void(QPainter&, const QRectF&)>& content);

    // True when there was an open page.
    bool endPage() { return std::exchange(pageOpen_, false); }
    bool hasPages() const { return painter_.isActive(); }
    // Ends the document and gives its bytes; nothing can be drawn any more.
    QByteArray finish();

  private:
    void openPage();

    QByteArray bytes_;
    QBuffer buffer_;
    QPdfWriter writer_;
    QPainter painter_;
    QFont font_;
    QPageLayout::Orientation orientation_ = QPageLayout::Portrait;
    bool pageOpen_ = false;
};

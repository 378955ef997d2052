// One page of a figure: a picture with its heading, drawn once and shown, printed and saved as it is.
#pragma once

#include <QList>
#include <QPicture>
#include <QRectF>
#include <QRgb>
#include <QString>
#include <memory>

class QCPPainter;
class QCPScatterStyle;
class QCustomPlot;

struct FigureSheet {
    // The sheet without the paper's margins, A4 in landscape, in 1/96 inch.
    static constexpr int width = 1047;
    static constexpr int height = 718;

    QString figure;
    QPicture picture;
    QString words; // all texts on it, for those who hear the screen

    // Draws the sheet into a frame of this shape; pictures scale themselves to the device otherwise.
    void draw(QPainter& painter, const QRectF& frame) const;
};

// What stands above every figure.
struct FigureTitle {
    QString figure;
    QString problem; // with its round
    QString group;   // who it is about
    QString reading; // how to read the figure, in a sentence or two; takes up to two lines
    QString foot{};  // a line below the figure
};

// Inks that stay apart in black and white and for every colour vision: they differ in lightness.
namespace Ink {
constexpr QRgb line = 0xff000000;
constexpr QRgb dark = 0xff1f3b63;
constexpr QRgb middle = 0xff7f9fc8;
constexpr QRgb light = 0xffd5e0ee;
constexpr QRgb rule = 0xffc8c8c8;
} // namespace Ink

// Texts are 9 pt unless another size is given, in the font of the reports: half-width characters have one
// width.
class Sheet {
  public:
    static constexpr double top = 84;     // the figure begins below the title
    static constexpr double bottom = 712; // and ends here
    static constexpr int textSize = 12;
    static constexpr int columns = FigureSheet::width * 2 / textSize; // half-width ones of a line

    Sheet(const FigureTitle& title, int page, int pages);
    ~Sheet();
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    void text(const QRectF& frame, const QString& text, Qt::Alignment alignment = Qt::AlignLeft,
              int pixels = textSize);
    // A name over two lines; a longer one over three in smaller letters, which take some 110 characters.
    void name(const QRectF& frame, const QString& name);
    void box(const QRectF& frame, QRgb fill);
    void line(QPointF from, QPointF to); // a fine one
    void mark(QPointF place, const QCPScatterStyle& style);
    void plot(QCustomPlot& plot, const QRectF& frame);

    FigureSheet finish();

  private:
    FigureSheet sheet_;
    std::unique_ptr<QCPPainter> painter_;
};

// The font of all texts of a figure.
QFont figureFont(int pixels);
// The text, with "…" for what does not fit into so many pixels.
QString elidedText(const QString& text, double width);
// The whole text in lines of at most so many pixels; numbers stay whole.
QStringList wrappedText(const QString& text, double width);
// Fonts, axes and grid as all figures have them.
void setUpPlot(QCustomPlot& plot);

// A label of one line that shows as much of its text as it has room for; the whole text is its tool tip.
#pragma once

#include <QLabel>

// Tool tip that shows the text as it is, wrapped when it is long; by itself a tool tip would take a name that
// looks like markup for markup.
QString plainToolTip(const QString& text);

class ElidedLabel : public QLabel {
  public:
    using QLabel::QLabel;

    void setWholeText(const QString& text);
    // Where "…" stands for what has no room; at the end unless another place is set.
    void setElideMode(Qt::TextElideMode mode) { mode_ = mode; }
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::TextElideMode mode_ = Qt::ElideRight;
};

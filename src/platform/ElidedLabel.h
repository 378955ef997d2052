// A label of one line that shows as much of its text as it has room for; the whole text is its tool tip.
#pragma once

#include <QLabel>

class ElidedLabel : public QLabel {
  public:
    using QLabel::QLabel;

    void setWholeText(const QString& text);
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// A label of one line that shows as much of its text as it has room for; the whole text is its tool tip. It
// takes further lines only while it may wrap.
#pragma once

#include <QLabel>
#include <functional>

// Tool tip that shows the text as it is, wrapped when it is long; by itself a tool tip would take a name that
// looks like markup for markup.
QString plainToolTip(const QString& text);

class ElidedLabel : public QLabel {
  public:
    using QLabel::QLabel;

    void setWholeText(const QString& text);
    // A sentence about things with names. Where it has no room the names are cut, all to the same width, and
    // none of its own words.
    using Sentence = std::function<QString(const QStringList& names)>;
    void setSentence(const QStringList& names, const Sentence& sentence);
    // What there is room for.
    QString shownText() const;
    // Whether what one line has no room for goes on in further ones.
    void setWrapped(bool wrapped);
    // Where "…" stands for what has no room; at the end unless another place is set.
    void setElideMode(Qt::TextElideMode mode) { mode_ = mode; }
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString sentence_; // the text that names_ and withNames_ belong to
    QStringList names_;
    Sentence withNames_;
    Qt::TextElideMode mode_ = Qt::ElideRight;
    bool isWrapped_ = false;
};

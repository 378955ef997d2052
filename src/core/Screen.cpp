#include "core/Screen.h"

#include "core/Common.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int lowerMargin = 10; // pixels between the status line and the frame
constexpr int widestPage = 900;

// A page of fields has no use for more room: its fields, labels and buttons stay together in the upper left
// when the window is enlarged.
void keepTogether(QVBoxLayout* page, QWidget* window) {
    page->addStretch();
    auto* contents = new QWidget(window);
    contents->setLayout(page);
    contents->setMaximumWidth(widestPage);
    auto* row = new QHBoxLayout(window);
    row->setContentsMargins({});
    row->addWidget(contents, 1);
    row->addStretch();
}

} // namespace

void Screen::addStatusLine(ElidedLabel* line) {
    status_ = line != nullptr ? line : new ElidedLabel;
    status_->setObjectName(u"Status"_s);
    if (line != nullptr) return;
    status_->setTextFormat(Qt::PlainText);
    status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* page = qobject_cast<QVBoxLayout*>(layout());
    if (!page->expandingDirections().testFlag(Qt::Vertical)) keepTogether(page, this);
    page->addWidget(status_);
    QMargins margins = page->contentsMargins();
    margins.setBottom(std::min(margins.bottom(), lowerMargin));
    page->setContentsMargins(margins);
}

void Screen::say(const QString& text, bool warns) {
    sayOf(
        {}, [&](const QStringList&) { return text; }, warns);
}

void Screen::sayOf(const QStringList& names, const ElidedLabel::Sentence& sentence, bool warns) {
    if (status_ == nullptr) return;
    QFont font = status_->font();
    font.setBold(warns);
    status_->setFont(font);
    status_->setWrapped(false);
    status_->setSentence(names, sentence);
    status_->setAccessibleName(status_->text());
    QAccessibleEvent changed(status_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

QString Screen::told() const {
    return status_ == nullptr ? QString() : status_->text();
}

void Screen::sayRunning(const QString& text) {
    say(text);
    if (status_ != nullptr) status_->setWrapped(true);
    running_ = text;
}

void Screen::endRunning() {
    if (told() == running_) say({});
}

QWidget* Screen::lineBelow() const {
    return status_;
}

void Screen::clearStatus() {
    setDone({});
    say({});
}

void Screen::setDoneOf(const QStringList& names, const ElidedLabel::Sentence& sentence) {
    doneNames_ = names;
    done_ = sentence;
}

void Screen::sayWithDone(const QString& words, bool warns) {
    sayOf(
        doneNames_, [words, done = done_](const QStringList& names) { return words + done(names); }, warns);
}

void Screen::sayFailed(const QString& caption) {
    sayWithDone(u"「%1」を完了できませんでした。"_s.arg(caption), true);
}

bool Screen::hasInput() const {
    return std::ranges::any_of(findChildren<QLineEdit*>(), &QLineEdit::isModified);
}

void Screen::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_F1:
            runEvent([this] { Common::HelpPresenter(helpTopic()); });
            break;
        case Qt::Key_Escape:
            if (hasInput()) return say(u"入力した内容があります。終了するときは Alt+X を押してください。"_s);
            runEvent([this] { end(); });
            break;
        default:
            Form::keyPressEvent(event);
    }
}

#include "widgets/Form.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int twipsPerPixel = 15; // 1440 to the inch at 96 pixels to the inch

// Pixels that the window's frame takes, both sides; the title is counted twice, since a window that is
// centred without its frame hangs that much too low.
constexpr QSize frameRoom{8, 56};
constexpr int betweenWindows = 2; // pixels
constexpr QMargins lineMargins{20, 4, 20, 6};
// What a list or a grid is still of use with: a heading and three rows.
constexpr QSize smallestView{200, 90};

// Contents that are higher than the window. The window stays as wide as they need, and the bar beside them,
// also when they come to need more.
class ScrollingPage : public QScrollArea {
  public:
    using QScrollArea::QScrollArea;

    QSize minimumSizeHint() const override {
        const int needed = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
        const int room = screen()->availableGeometry().width() - frameRoom.width();
        return {std::min(needed, room), QScrollArea::minimumSizeHint().height()};
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};

} // namespace

Form::Form(const QString& name) : name_(name) {
    setObjectName(name);
    // Focus is shown however it came: by Tab, by Enter, from another screen.
    setAttribute(Qt::WA_KeyboardFocusChange);
}

void Form::unload() {
    unloading_ = true;
    close();
}

void Form::fitToScreen() {
    layOutAnew();
    fitToScreen(sizeHint());
}

// A layout within the layout does not hear what became of a control before the window was ever shown.
void Form::layOutAnew() {
    layout()->invalidate();
    layout()->activate();
}

void Form::fitToScreen(const QSize& wanted) {
    const QSize room = screen()->availableGeometry().size() - frameRoom;
    if (needsMoreThan(room)) shrinkViews();
    if (needsMoreThan(room)) scrollContents();
    layout()->activate(); // or the window keeps the least size that it had
    resize(wanted.boundedTo(room));
}

bool Form::needsMoreThan(const QSize& room) const {
    const QSize needed = minimumSizeHint();
    return needed.width() > room.width() || needed.height() > room.height();
}

void Form::shrinkViews() {
    for (auto* view : findChildren<QAbstractScrollArea*>())
        view->setMinimumSize(view->minimumSize().boundedTo(smallestView));
    layOutAnew();
}

void Form::scrollContents() {
    auto* area = new ScrollingPage(this);
    auto* contents = new QWidget(area); // in this window all the time, or the order of Tab would be lost
    contents->setLayout(layout());
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // Tab goes from control to control
    area->setWidgetResizable(true);
    area->setWidget(contents);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins({});
    page->addWidget(area);
    if (QWidget* line = lineBelow(); line != nullptr) {
        line->setContentsMargins(lineMargins);
        page->addWidget(line);
    }
    connect(qApp, &QApplication::focusChanged, area, [area, contents](QWidget*, QWidget* now) {
        if (now != nullptr && contents->isAncestorOf(now)) area->ensureWidgetVisible(now);
    });
}

void Form::centre() {
    fitToScreen();
    const QSize available = screen()->size();
    move((available.width() - width()) / 2, (available.height() - height()) / 2);
}

void Form::position(int leftTwips, int topTwips) {
    move(leftTwips / twipsPerPixel, topTwips / twipsPerPixel);
}

void Form::stepAside(const Form& other) {
    const QRect taken(other.pos(), other.size() + QSize(frameRoom.width(), frameRoom.height() / 2));
    if (!taken.intersects(QRect(pos(), size()))) return;
    const int farthest = screen()->availableGeometry().right() - frameRoom.width() - width();
    move(std::max(x(), std::min(other.x() + taken.width() + betweenWindows, farthest)), y());
}

void Form::closeEvent(QCloseEvent* event) {
    if (!unloading_) frameClosed();
    event->setAccepted(unloading_);
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QWidget::keyPressEvent(event);
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
        button->click();
    } else {
        focusNextChild();
    }
}

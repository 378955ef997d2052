#include "help/HelpWindow.h"

#include <QDate>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

#include "core/Actions.h"
#include "core/Common.h"
#include "core/DatabaseBackup.h"
#include "core/Messages.h"
#include "help/About.h"
#include "help/Manual.h"
#include "widgets/ElidedLabel.h"

using namespace Qt::StringLiterals;

namespace {

const QString backUp = u"データの控え"_s;

constexpr QSize preferredSize{1060, 700};
constexpr int contentsWidth = 260;
constexpr int indent = 2; // blanks for each level of headings

} // namespace

HelpWindow::HelpWindow(const QString& manual) : manual_(new Manual(manual)), contents_(new QListWidget) {
    setWindowTitle(u"Hollin 利用の手引き"_s);
    contents_->setObjectName(u"Contents"_s);
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    contents_->setAccessibleName(u"目次"_s);
    manual_->setAccessibleName(u"利用の手引き"_s);
    auto* panes = new QSplitter;
    panes->addWidget(contents_);
    panes->addWidget(manual_);
    panes->setStretchFactor(1, 1);
    panes->setSizes({contentsWidth, preferredSize.width() - contentsWidth});

    auto* buttons = new QDialogButtonBox;
    auto* copy = buttons->addButton(u"データの控えを作る(&B)"_s, QDialogButtonBox::ActionRole);
    copy->setObjectName(u"Copy"_s);
    auto* about = buttons->addButton(u"このプログラムについて(&P)"_s, QDialogButtonBox::ActionRole);
    auto* close = buttons->addButton(u"閉じる(&X)"_s, QDialogButtonBox::RejectRole);
    auto* page = new QVBoxLayout(this);
    page->addWidget(panes, 1);
    page->addWidget(buttons);

    connect(contents_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) manual_->goTo(row);
    });
    connect(copy, &QPushButton::clicked, this, [this] { chooseCopy(); });
    connect(about, &QPushButton::clicked, this, [this] { showAbout(); });
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    fillContents();
    resize(preferredSize.boundedTo(screen()->availableGeometry().size() * 0.9));
}

void HelpWindow::fillContents() {
    if (!manual_->isRead())
        return manual_->setPlainText(u"利用の手引きが見つかりません。\n"_s + manualFile());
    for (const auto& heading : manual_->headings()) {
        auto* entry = new QListWidgetItem(QString(qsizetype{heading.level - 1} * indent, u' ') + heading.text,
                                          contents_);
        entry->setToolTip(plainToolTip(heading.text));
    }
}

void HelpWindow::showSection(const QString& screen) {
    show();
    raise();
    activateWindow();
    contents_->setCurrentRow(-1); // so that the section is shown again when it is the current one
    contents_->setCurrentRow(std::max(manual_->sectionOf(screen), 0));
    manual_->setFocus(); // the arrows and the page keys read on
}

void HelpWindow::chooseCopy() {
    const QString proposed =
        QDir::home().filePath(u"Hollin-%1.mdb"_s.arg(QDate::currentDate().toString(u"yyyyMMdd"_s)));
    // An existing file is refused below, so the dialog need not ask whether to replace it.
    const QString copy =
        QFileDialog::getSaveFileName(this, u"データの控えを作る"_s, proposed, u"データベース (*.mdb)"_s,
                                     nullptr, QFileDialog::DontConfirmOverwrite);
    if (!copy.isEmpty()) makeCopy(copy);
}

void HelpWindow::makeCopy(const QString& copy) {
    runAction(backUp, [&copy] {
        backUpDatabase(Common::AppDir + u"\\DB\\Hollin.mdb"_s, copy);
        Common::MsgText = u"データの控えを作りました。\n"_s + copy;
        Common::showMessage(MessageStyle::Plain, backUp);
    });
}

void HelpWindow::showAbout() {
    const QString title = u"このプログラムについて"_s;
    runAction(title, [&] {
        Common::MsgText = aboutText();
        Common::showMessage(MessageStyle::Plain, title);
    });
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

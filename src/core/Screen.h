// Base of the program's screens: how their controls are tied to event procedures, what their status line
// says, the keys that all of them know.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

#include "core/Actions.h"
#include "core/Messages.h"
#include "core/Screens.h"
#include "widgets/ElidedLabel.h"
#include "widgets/Form.h"

class Screen : public Form {
  public:
    using Form::Form;

    void frameClosed() final {
        runEvent([this] { end(); });
    }

  protected:
    // What the end button does, and so does closing the window by its frame.
    virtual void end() = 0;

    // Ties a signal to an event procedure that has no error handler of its own.
    template <typename Sender, typename Signal, typename Procedure>
    void onEvent(Sender* sender, Signal signal, Procedure procedure) {
        connect(sender, signal, this, [procedure] { runEvent(procedure); });
    }

    // Ties a list box to the procedure of a choice. When that fails the box goes back to the choice that the
    // rest of the screen shows.
    template <typename Procedure>
    void onChoice(QComboBox* box, Procedure procedure) {
        connect(box, &QComboBox::activated, this, [box, procedure, shown = box->currentIndex()]() mutable {
            if (!runEvent(procedure)) box->setCurrentIndex(shown);
            shown = box->currentIndex();
        });
    }

    // Ties a button to an action procedure whose errors are shown under `caption`.
    template <typename Procedure>
    void onAction(QAbstractButton* button, const QString& caption, Procedure procedure) {
        connect(button, &QAbstractButton::clicked, this, [this, caption, procedure] {
            clearStatus();
            if (!runAction(caption, procedure)) sayFailed(caption);
        });
    }

    // Where the status line stands: at the screen's lower edge, or the label given, which is laid out
    // already. A screen without one says nothing.
    void addStatusLine(ElidedLabel* line = nullptr);
    // What the last action did; `warns` sets off what the user should look at. Each action clears it first.
    void say(const QString& text, bool warns = false);
    // The same about things with names: where the line has no room, the names are cut.
    void sayOf(const QStringList& names, const ElidedLabel::Sentence& sentence, bool warns = false);
    QString told() const; // what it says now
    // How far the action under way is: in as many lines as the text needs, until the action says what it did.
    void sayRunning(const QString& text);
    void endRunning();
    void clearStatus();
    // What the action under way has done already: an error does not take it back, and the line that tells of
    // the error tells it, too.
    void setDone(const QString& text) {
        setDoneOf({}, [text](const QStringList&) { return text; });
    }
    void setDoneOf(const QStringList& names, const ElidedLabel::Sentence& sentence);
    // What is done, behind other words; names are cut in it as `sayOf` does.
    void sayWithDone(const QString& words, bool warns = false);
    bool hasDone() const { return !done_(doneNames_).isEmpty(); }

    // Whether leaving would lose what was typed without a question: then Esc does not leave.
    virtual bool hasInput() const;

    // What heads the screen's section of the manual.
    virtual QString helpTopic() const { return name(); }

    // F1 opens the manual at this screen's section, Esc leaves.
    void keyPressEvent(QKeyEvent* event) override;

    // The focus goes to the field, and what is typed next takes the place of its text.
    static void goTo(QWidget* field) {
        field->setFocus();
        if (auto* text = qobject_cast<QLineEdit*>(field)) text->selectAll();
    }

    // Says what is wrong and goes to the field to mend.
    static void refuseAt(QWidget* field, const QString& text) {
        Common::refuse(text);
        goTo(field);
    }

    // Leaves the screen: shows the menu, then closes the screen.
    void leaveTo(const QString& menu) {
        Common::Forms.show(menu);
        Common::Forms.unload(name());
    }

  private:
    QWidget* lineBelow() const override;
    void sayFailed(const QString& caption);

    ElidedLabel* status_ = nullptr;
    QStringList doneNames_;
    ElidedLabel::Sentence done_ = [](const QStringList&) { return QString(); };
    QString running_;
};

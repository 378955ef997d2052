// Base of the program's screens: how their controls are tied to event procedures.
#pragma once

#include <QAbstractButton>
#include <QLineEdit>

#include "core/Actions.h"
#include "core/Common.h"
#include "core/Screens.h"
#include "platform/Form.h"

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

    // Ties a button to an action procedure whose errors are shown under `caption`.
    template <typename Procedure>
    void onAction(QAbstractButton* button, const QString& caption, Procedure procedure) {
        connect(button, &QAbstractButton::clicked, this,
                [caption, procedure] { runAction(caption, procedure); });
    }

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
};

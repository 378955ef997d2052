// The table of screens and the forms that are open.
#pragma once

#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "widgets/Form.h"

// The button of a menu that opens a screen.
struct MenuPlace {
    QString menu;
    QString control;
    QString caption;
};

// One screen: its name, who makes its form, and where it stands in a menu, in the order of the rows.
struct ScreenRow {
    QString name;
    std::function<std::unique_ptr<Form>()> make;
    std::optional<MenuPlace> place;
};

template <typename Screen>
ScreenRow screenRow(const QString& name, std::optional<MenuPlace> place = {}) {
    return {name, [] { return std::make_unique<Screen>(); }, std::move(place)};
}

class Screens {
  public:
    // Takes the place of an earlier row of the same name.
    void add(ScreenRow row);
    QStringList names() const;
    // The screens that a menu opens.
    std::vector<ScreenRow> entriesOf(const QString& menu) const;

    // Loads the form when it is not loaded (its load handler runs) and shows it.
    void show(const QString& name);
    // Closes the form and discards its instance; nothing happens when it is not loaded. When no form is left
    // the program ends.
    void unload(const QString& name);
    // The loaded form, or null.
    Form* find(const QString& name) const;
    void unloadAll();

  private:
    // A form is often unloaded from within one of its own event procedures, so it is deleted afterwards.
    struct DeleteLater {
        void operator()(Form* form) const { form->deleteLater(); }
    };

    std::vector<ScreenRow> rows_;
    std::map<QString, std::unique_ptr<Form, DeleteLater>> loaded_;
};

namespace Common {

// The open forms of the program.
extern Screens Forms;

} // namespace Common

// The table of screens and the forms that are open.
#pragma once

#include <QStringList>
#include <functional>
#include <map>
#include <memory>

#include "widgets/Form.h"

class Screens {
  public:
    using Maker = std::function<std::unique_ptr<Form>()>;

    template <typename Screen>
    void add(const QString& name) {
        makers_[name] = [] { return std::make_unique<Screen>(); };
    }
    bool exists(const QString& name) const { return makers_.contains(name); }
    QStringList names() const;

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

    std::map<QString, Maker> makers_;
    std::map<QString, std::unique_ptr<Form, DeleteLater>> loaded_;
};

namespace Common {

// The open forms of the program.
extern Screens Forms;

} // namespace Common

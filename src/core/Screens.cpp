#include "core/Screens.h"

#include <QCoreApplication>

#include "core/Common.h"
#include "text/RuntimeError.h"
#include "widgets/Controls.h"

using namespace Qt::StringLiterals;

Screens Common::Forms;

QStringList Screens::names() const {
    QStringList names;
    for (const auto& [name, maker] : makers_) names << name;
    return names;
}

void Screens::show(const QString& name) {
    if (!loaded_.contains(name)) {
        const auto maker = makers_.find(name);
        if (maker == makers_.end())
            throw RuntimeError(ErrorCode::InvalidCall, u"画面「%1」がありません。"_s.arg(name));
        Form* form = (loaded_[name] = decltype(loaded_)::mapped_type(maker->second().release())).get();
        settleControls(*form);
        const QString title = Common::MsgTitle;
        try {
            form->Form_Load();
        } catch (...) {
            loaded_.erase(name);
            Common::MsgTitle = title; // the screen that stays goes on under its own
            throw;
        }
    }
    // A load handler may have unloaded its own form.
    if (Form* form = find(name)) {
        form->show();
        form->raise();
        form->activateWindow();
    }
}

void Screens::unload(const QString& name) {
    auto node = loaded_.extract(name);
    if (node.empty()) return;
    node.mapped()->unload();
    if (loaded_.empty()) QCoreApplication::quit();
}

Form* Screens::find(const QString& name) const {
    const auto found = loaded_.find(name);
    return found == loaded_.end() ? nullptr : found->second.get();
}

void Screens::unloadAll() {
    while (!loaded_.empty()) unload(loaded_.begin()->first);
}

#include "core/Screens.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>

#include "core/Messages.h"
#include "text/RuntimeError.h"
#include "widgets/Controls.h"

using namespace Qt::StringLiterals;

Screens Common::Forms;

void Screens::add(ScreenRow row) {
    const auto earlier = std::ranges::find(rows_, row.name, &ScreenRow::name);
    if (earlier == rows_.end())
        rows_.push_back(std::move(row));
    else
        *earlier = std::move(row);
}

QStringList Screens::names() const {
    QStringList names;
    for (const auto& row : rows_) names << row.name;
    return names;
}

std::vector<ScreenRow> Screens::entriesOf(const QString& menu) const {
    std::vector<ScreenRow> entries;
    std::ranges::copy_if(rows_, std::back_inserter(entries),
                         [&](const ScreenRow& row) { return row.place && row.place->menu == menu; });
    return entries;
}

void Screens::show(const QString& name) {
    if (!loaded_.contains(name)) {
        const auto row = std::ranges::find(rows_, name, &ScreenRow::name);
        if (row == rows_.end())
            throw RuntimeError(ErrorCode::InvalidCall, u"画面「%1」がありません。"_s.arg(name));
        Form* form = (loaded_[name] = decltype(loaded_)::mapped_type(row->make().release())).get();
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

#include "hierarchy/StructureTree.h"

#include "widgets/Colours.h"
#include "widgets/ElidedLabel.h"

#include <QHeaderView>
#include <QStyle>
#include <QTreeWidget>
#include <memory>

using namespace Qt::StringLiterals;

StructureTree::StructureTree(QTreeWidget* widget, QTreeView* beside) : widget_(widget), beside_(beside) {
    widget_->setColumnCount(2);
    widget_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    beside_->setModel(widget_->model());
    beside_->setSelectionModel(widget_->selectionModel());
    beside_->setColumnHidden(1, true);
}

void StructureTree::clear() {
    next_ = nullptr;
    items_.clear();
    widget_->clear();
}

void StructureTree::show(const std::vector<TreeNode>& nodes, const ParentList& parents) {
    clear();
    // Put together apart from the widget, which then lays it out once.
    std::unique_ptr<QTreeWidgetItem> root;
    for (const auto& node : nodes) {
        auto item = std::make_unique<QTreeWidgetItem>(
            QStringList{factorText(node.place.factorNo, node.name, u" "_s)});
        item->setData(0, Qt::UserRole, node.key());
        item->setToolTip(0, plainToolTip(item->text(0))); // long names may be cut
        item->setForeground(0, fadedText(widget_->palette()));
        if (!node.parent) {
            items_[node.place] = item.get();
            root = std::move(item);
        } else if (const auto parent = items_.find(*node.parent); parent != items_.end()) {
            items_[node.place] = item.get();
            parent->second->addChild(item.release());
        }
    }
    mark(parents);
    if (root) widget_->addTopLevelItem(root.release());
    widget_->expandAll();
    beside_->expandAll();
}

void StructureTree::mark(const ParentList& parents) {
    for (const auto& parent : parents.parents)
        if (const auto found = items_.find(parent.place); found != items_.end())
            found->second->setData(0, Qt::ForegroundRole, {});
    const auto next = parents.next ? items_.find(*parents.next) : items_.end();
    if (next == items_.end()) return;
    next_ = next->second;
    QFont bold = widget_->font();
    bold.setBold(true);
    next_->setText(1, parents.isNextFilled ? u"← 次に登録し直す親要因"_s : u"← 次に設定する親要因"_s);
    next_->setIcon(0, widget_->style()->standardIcon(QStyle::SP_ArrowRight));
    for (const int column : {0, 1}) next_->setFont(column, bold);
}

void StructureTree::select(const NodePlace& place) {
    if (const auto found = items_.find(place); found != items_.end()) widget_->setCurrentItem(found->second);
}

void StructureTree::revealNext() {
    for (QTreeView* view : std::initializer_list<QTreeView*>{widget_, beside_})
        view->scrollTo(widget_->indexFromItem(next_));
}

std::optional<NodePlace> StructureTree::placeOf(const QTreeWidgetItem* item) const {
    for (const auto& [place, shown] : items_)
        if (shown == item) return place;
    return std::nullopt;
}

QString StructureTree::pathTo(const NodePlace& place) const {
    const auto found = items_.find(place);
    QStringList path;
    for (const auto* item = found == items_.end() ? nullptr : found->second; item != nullptr;
         item = item->parent())
        path.prepend(item->text(0));
    return path.join(u" ＞ "_s);
}

// The structure editor's tree, shown in two views: the whole problem expanded, with the places where work
// goes on marked.
#pragma once

#include <map>

#include "hierarchy/StructureTables.h"

class QTreeView;
class QTreeWidget;
class QTreeWidgetItem;

class StructureTree {
  public:
    // Column 0 holds number and name, column 1 the mark of the next parent to fill. `beside` shows the same
    // nodes and selection in less room.
    StructureTree(QTreeWidget* widget, QTreeView* beside);

    // Shows the nodes; one whose parent is not among them is left out. Parents on offer stand out from the
    // rest, the next one to fill most of all.
    void show(const std::vector<TreeNode>& nodes, const ParentList& parents);
    void clear();

    // Nothing happens when the tree has no such node.
    void select(const NodePlace& place);
    // Brings the next parent to fill into view.
    void revealNext();
    std::optional<NodePlace> placeOf(const QTreeWidgetItem* item) const;
    // The names from the problem down to the node, empty when the tree has no such node.
    QString pathTo(const NodePlace& place) const;

  private:
    void mark(const ParentList& parents);

    QTreeWidget* widget_;
    QTreeView* beside_;
    QTreeWidgetItem* next_ = nullptr;
    std::map<NodePlace, QTreeWidgetItem*> items_;
};

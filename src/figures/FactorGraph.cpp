#include "figures/FactorGraph.h"

#include <algorithm>

#include "hierarchy/Descent.h"

namespace {

// Factors below the problem, each behind everything that stands below it.
class DepthFirst {
  public:
    DepthFirst(qint32 problemNo, const ChildrenByParent& children)
        : problemNo_(problemNo), children_(children) {}

    void visit(qint32 factorNo) {
        const auto met = state_.find(factorNo);
        if (met != state_.end() && *met == State::Open) raiseCircle(problemNo_);
        if (met != state_.end()) return;
        state_.insert(factorNo, State::Open);
        auto below = children_.value(factorNo);
        std::ranges::reverse(below);
        for (const qint32 child : below) visit(child);
        state_[factorNo] = State::Done;
        order.push_back(factorNo);
    }

    std::vector<qint32> order;

  private:
    enum class State { Open, Done };

    qint32 problemNo_;
    const ChildrenByParent& children_;
    QHash<qint32, State> state_;
};

} // namespace

FactorGraph::FactorGraph(qint32 problemNo, const ChildrenByParent& children,
                         const ChildrenByParent& structure) {
    DepthFirst search(problemNo, children);
    search.visit(problemNo);
    factors_.assign(search.order.rbegin(), search.order.rend());
    QHash<qint32, int> position;
    for (const qint32 factorNo : factors_) position.insert(factorNo, static_cast<int>(position.size()));
    for (const qint32 factorNo : factors_) {
        for (const qint32 child : children.value(factorNo))
            edges_.push_back({factorNo, child, position[factorNo], position[child]});
        if (!structure.contains(factorNo)) leaves_.push_back(position[factorNo]);
    }
    std::ranges::sort(leaves_, {}, [this](int leaf) { return factors_[static_cast<std::size_t>(leaf)]; });
}

void FactorGraph::multiplyDown(const std::vector<double>& local, std::vector<double>& global) const {
    global.assign(factors_.size(), 0);
    global[0] = 1;
    for (std::size_t i = 0; i < edges_.size(); ++i)
        global[static_cast<std::size_t>(edges_[i].factor)] +=
            global[static_cast<std::size_t>(edges_[i].parent)] * local[i];
}

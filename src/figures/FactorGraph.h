// The factors of a problem in an order in which weights can be multiplied down from the problem.
#pragma once

#include <vector>

#include "hierarchy/Structure.h"

// A factor may stand below several parents: its value is the sum over all ways from the problem.
class FactorGraph {
  public:
    struct Edge {
        qint32 parentNo;
        qint32 factorNo;
        int parent; // positions in `factors`
        int factor;
    };

    // The edges that can be reached from the problem. A leaf is what has no children in `structure`: a goal
    // factor that nobody has weighted ends the way, but is none. Raises error 5 when edges run in a circle.
    FactorGraph(qint32 problemNo, const ChildrenByParent& children, const ChildrenByParent& structure);

    // Every edge stands behind all edges into its parent.
    const std::vector<Edge>& edges() const { return edges_; }
    const std::vector<qint32>& factors() const { return factors_; } // the problem first
    // Positions in `factors`.
    const std::vector<int>& leaves() const { return leaves_; } // by factor number

    // Global weights by position: 1 for the problem, then the sum of parent × local weight over the edges
    // into the factor. `local` holds a weight for each edge, 0 where there is none.
    void multiplyDown(const std::vector<double>& local, std::vector<double>& global) const;

  private:
    std::vector<qint32> factors_;
    std::vector<Edge> edges_;
    std::vector<int> leaves_;
};

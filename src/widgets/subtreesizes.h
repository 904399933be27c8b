#pragma once

#include <utility>
#include <vector>

namespace PickerCtl {

/**
 * The sizes of a node's child subtrees in child order, as a Fenwick tree: appending a child,
 * growing one subtree, summing the sizes before a child and finding the child that holds the
 * n-th node below the parent all cost O(log children). The option tree numbers its nodes in
 * pre-order with it, so adding a node anywhere never renumbers the whole tree.
 */
class SubtreeSizes
{
public:
    int count() const { return int(m_tree.size()) - 1; }

    /// Appends a child whose subtree holds `size` nodes.
    void append(int size)
    {
        const int position = count() + 1;
        // A Fenwick cell holds the sum over (position - lowbit, position]; all but the new
        // element are already in the tree.
        m_tree.push_back(size + sumBefore(position - 1) - sumBefore(position - lowBit(position)));
    }

    /// Grows the subtree of the child at `row` (0-based) by delta nodes.
    void grow(int row, int delta)
    {
        for (int i = row + 1; i <= count(); i += lowBit(i))
            m_tree[size_t(i)] += delta;
    }

    /// Number of nodes in the subtrees of the first `rows` children.
    int sumBefore(int rows) const
    {
        int sum = 0;
        for (int i = rows; i > 0; i -= lowBit(i))
            sum += m_tree[size_t(i)];
        return sum;
    }

    /**
     * The child whose subtree holds the n-th node (1-based) of all the children's subtrees in
     * order, and the position of that node within the child's subtree (1 is the child itself).
     * n must lie within the total.
     */
    std::pair<int, int> find(int n) const
    {
        int row = 0;
        int highest = 1;
        while (highest * 2 <= count())
            highest *= 2;
        for (int step = highest; step > 0; step /= 2) {
            if (row + step <= count() && m_tree[size_t(row + step)] < n) {
                row += step;
                n -= m_tree[size_t(row)];
            }
        }
        return {row, n};
    }

private:
    static int lowBit(int i) { return i & -i; }

    std::vector<int> m_tree{0};  ///< 1-based; cell 0 unused
};

} // namespace PickerCtl

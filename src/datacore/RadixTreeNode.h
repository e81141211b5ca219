#pragma once

#include <QString>

#include <deque>

/// One node of a tree of names, with its child nodes by value.
struct RadixTreeNode {
    QString name;
    std::deque<RadixTreeNode> children;

    bool operator==(const RadixTreeNode& other) const = default;
};

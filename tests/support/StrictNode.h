#ifndef QUAVERA_TESTS_SUPPORT_STRICT_NODE_H_
#define QUAVERA_TESTS_SUPPORT_STRICT_NODE_H_

#include <memory>
#include <string>

#include "platform/XmlNode.h"

/// A tree of nodes that have the 15 required operations only and watch how they are used, as
/// another maker's nodes would have to be: what a caller may not rely on does not work here, and
/// is told.
///
/// A node is named by its path from the root: "Album/Tracks/Track".
class StrictTree {
 public:
    /// What another maker's lists of children may be like.
    enum class Lists {
        kSame,    // one list for each node; `GetChildren` puts it back ahead of the first child
        kNew,     // a list of its own, with its own position, from each call
        kReused,  // as kSame, and a list has one node, which `First` and `Next` turn into the child
    };

    /// A root without text and children.
    StrictTree(Lists lists, const std::string& rootName);
    /// A copy of a tree.
    StrictTree(Lists lists, ZQXML::INode* original);
    StrictTree(const StrictTree&) = delete;
    StrictTree& operator=(const StrictTree&) = delete;
    ~StrictTree();

    /// Borrowed, as all nodes of the tree are.
    ZQXML::INode* Root();

    /// Declares that nodes on that path may be asked by "GetValue", "GetValueInt" or
    /// "GetValueDecoded". In the path, "*" stands for any name.
    void Allow(const std::string& path, const std::string& operation);

    /// From here on the nodes count as gone; they still answer, but each call is a violation.
    void Close();

    /// What was done against the rules, each once, one on a line: a value asked for that was not
    /// allowed, `Next` ahead of `First` or after the end, `First` twice on a list, `Release` of a
    /// node, which is not the caller's, any call on a node that is gone, and walks without end,
    /// which are ended.
    std::string Violations() const;

    /// The nodes whose children were asked for, in document order, one on a line: the path and the
    /// number of calls of `GetChildren`, "Album 2". Walks that were left ahead of the end are
    /// counted after it: "Album 2, 1 cut off".
    std::string Walks() const;

    /// The calls that changed the tree, in their order, one on a line, with the form of the value:
    ///
    ///     AddChild("Name", C-string "text")
    ///     AddChild("Name", string "text")
    ///     AddChild("Name", int -1)
    ///     AddChild("Name", unsigned 1)
    ///     AddChild("Name", bool true)
    ///     AddChildEncoded("Name", "dGV4dA==")
    ///     AppendChild("Name" "text" ("Child" "text"))
    ///     Initialize("Name", "text")
    ///
    /// A node other than the root stands ahead of its call: "Album/Tracks: ...".
    std::string Changes() const;

 private:
    struct State;
    std::unique_ptr<State> state_;
};

#endif  // QUAVERA_TESTS_SUPPORT_STRICT_NODE_H_

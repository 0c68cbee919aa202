#ifndef QUAVERA_FUZZ_TREES_H_
#define QUAVERA_FUZZ_TREES_H_

#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "platform/zqshared.h"

namespace fuzz {

using Tree = zq::auto_com<ZQXML::INode>;

/// Makes trees of an input, with all operations that add a child.
class TreeMaker {
 public:
    /// Names are mostly of the given ones; the others are such a name with an end of its own.
    TreeMaker(Input* input, const std::vector<std::string>& names)
        : input_(*input), names_(names) {}

    /// Goes on to the end of the input, or to a byte that says so.
    Tree Make();

 private:
    std::string Name();
    /// Adds a child to the innermost element, in the form that `form` says.
    void Add(std::size_t form);
    /// The same for an element that is made first, and goes on in it.
    void Open(Tree element);
    /// Goes on in the last child, whatever it is.
    void EnterLastChild();

    Input& input_;
    const std::vector<std::string>& names_;
    std::vector<ZQXML::INode*> open_;
};

}  // namespace fuzz

#endif  // QUAVERA_FUZZ_TREES_H_

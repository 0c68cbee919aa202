#include <exception>
#include <memory>
#include <new>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Differences.h"
#include "tools/Files.h"
#include "tools/Printing.h"

namespace tool {
namespace {

// The exit statuses of diff.
constexpr int kSame = 0;
constexpr int kDifferent = 1;
constexpr int kTrouble = 2;

struct DiffOptions {
    std::string recordClass;
    std::string left;
    std::string right;
    bool json = false;
};

int Fail(const Failure& failure) {
    Report(failure);
    return kTrouble;
}

Result<Records> Read(const std::string& path, const RecordClass* chosen) {
    const Result<std::string> text = ReadFile(path);
    return text ? ReadDocument(*text, DisplayName(path), chosen) : text.failure();
}

/// Takes a tree for what the other document is, where its root leaves that open: a root that two
/// classes write, "Album", is of the other one's class, and a single tree may be a list of one.
void Adapt(const Records& other, Records* records) {
    if (!records->isSoap && records->record->treeElement == other.record->treeElement) {
        records->record = other.record;
        records->isList = records->isList || other.isList;
    }
}

/// Makes both documents ones of one class, if they can be.
Result<Done> Reconcile(const DiffOptions& options, Records* left, Records* right) {
    Adapt(*left, right);
    Adapt(*right, left);
    if (left->record == right->record && left->isList == right->isList) {
        return Done();
    }
    const auto name = [](const Records& records) {
        return std::string(records.isList ? "a list of " : "") + std::string(records.record->name);
    };
    return Failure{DisplayName(options.right), "it holds " + name(*right) + ", but " +
                                                   DisplayName(options.left) + " holds " +
                                                   name(*left)};
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines) {
        all += line + "\n";
    }
    return all;
}

int Diff(const DiffOptions& options) {
    const RecordClass* const chosen = FindClass(&RecordClass::name, options.recordClass);
    Result<Records> left = Read(options.left, chosen);
    if (!left) {
        return Fail(left.failure());
    }
    Result<Records> right = Read(options.right, chosen);
    if (!right) {
        return Fail(right.failure());
    }
    const Result<Done> areOfOneClass = Reconcile(options, &*left, &*right);
    if (!areOfOneClass) {
        return Fail(areOfOneClass.failure());
    }
    const RecordShape& shape = ShapeOf(left->record->name);
    const Json leftJson = JsonOf(*left);
    const Json rightJson = JsonOf(*right);
    const std::vector<std::string> lines = Differences(leftJson, rightJson, shape);
    const Result<Done> written =
        WriteOutput(options.json ? JsonText(Patch(leftJson, rightJson)) + "\n" : Joined(lines));
    if (!written) {
        return Fail(written.failure());
    }
    return lines.empty() ? kSame : kDifferent;
}

}  // namespace

Run DeclareDiff(CLI::App* command) {
    const auto options = std::make_shared<DiffOptions>();
    DeclareRecordClass(command, &options->recordClass);
    command->add_flag("--json", options->json, "Print a JSON patch (RFC 6902)");
    command->add_option("a", options->left, "SOAP response or element tree; \"-\": standard input")
        ->type_name("A")
        ->required();
    command->add_option("b", options->right, "What it is compared with")
        ->type_name("B")
        ->required();
    return [options] {
        EndWithStatusOutOfMemory(kTrouble);
        try {
            return Diff(*options);
        } catch (const std::bad_alloc&) {  // elsewhere 1, which means here that they are different
            std::terminate();
        }
    };
}

}  // namespace tool

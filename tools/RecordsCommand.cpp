#include <algorithm>
#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Json.h"
#include "tools/RecordClasses.h"
#include "tools/RecordShape.h"

namespace tool {
namespace {

struct RecordsOptions {
    std::string recordClass;
    bool json = false;
};

struct ContentName {
    std::string_view type;  // as JSON has it
    std::string_view form;  // in the tree
};

ContentName NameOf(Content content) {
    switch (content) {
        case Content::kText:
            return {"text", "as it stands"};
        case Content::kMarkedText:
            return {"text", "as it stands, or decoded where it is marked"};
        case Content::kDisplay:
            return {"text", "base64 of UTF-8"};
        case Content::kLetter:
            return {"text", "code of a byte, hexadecimal"};
        case Content::kNumber:
            return {"number", "decimal, 32 bits signed"};
        case Content::kUnsigned:
            return {"number", "decimal, 32 bits unsigned"};
        case Content::kFlag:
            return {"flag", R"("true" or "false")"};
        case Content::kRecord:
            return {"record", "elements"};
        case Content::kRecords:
            return {"records", "elements"};
        case Content::kTexts:
            return {"texts", "elements"};
    }
    return {};
}

std::string TypeOf(const ElementShape& element) {
    const std::string type(NameOf(element.content).type);
    return element.isRepeated ? type + "s" : type;
}

/// The form that the record holds an element in, where that is another one than the tree's.
std::string_view ReadFormOf(const ElementShape& element) {
    const std::string_view form = NameOf(element.readAs).form;
    return element.isRead && form != NameOf(element.content).form ? form : std::string_view();
}

std::string FormOf(const ElementShape& element) {
    std::string form(NameOf(element.content).form);
    if (!element.item.empty()) {
        form += " \"" + std::string(element.item) + "\"";
    }
    if (element.isRepeated) {
        form += ", an element for each";
    }
    if (!element.writtenIf.empty()) {
        form.append(", ").append(element.writtenIf);
    }
    if (!element.isWritten) {
        form += "; read, never written";
    }
    if (!element.isRead) {
        form += "; written, never read";
    }
    if (const std::string_view readForm = ReadFormOf(element); !readForm.empty()) {
        form.append("; read ").append(readForm);
    }
    return form;
}

std::string TypeOf(const LineShape& line) {
    const std::string type(NameOf(line.content).type);
    return line.isRepeated ? type + "s" : type;
}

/// What comes after a line's label.
std::string FormOf(const LineShape& line) {
    switch (line.content) {
        case Content::kDisplay:
            return "UTF-8";
        case Content::kRecord:
            return "its lines, and a line break";
        case Content::kRecords:
            return "the lines of each, after these words";
        default:
            break;
    }
    std::string form(NameOf(line.content).form);
    if (line.isRepeated) {
        form +=
            line.isBroken ? ", a line for each" : ", each after these words, without line breaks";
    }
    return form;
}

Json JsonOf(const RecordShape& shape) {
    Json elements = Json::array();
    for (const ElementShape& each : shape) {
        Json element = {{"name", each.name},
                        {"type", TypeOf(each)},
                        {"form", FormOf(each)},
                        {"written", each.isWritten},
                        {"read", each.isRead}};
        if (!each.writtenIf.empty()) {
            element["writtenIf"] = each.writtenIf;
        }
        if (const std::string_view readForm = ReadFormOf(each); !readForm.empty()) {
            element["readForm"] = readForm;
        }
        if (!each.item.empty()) {
            element["item"] = each.item;
        }
        if (!each.elements.empty()) {
            element["elements"] = JsonOf(each.elements);
        }
        elements.push_back(std::move(element));
    }
    return elements;
}

Json JsonOf(const TextShape& text) {
    Json lines = Json::array();
    for (const LineShape& each : text) {
        Json line = {{"label", each.label}, {"type", TypeOf(each)}, {"form", FormOf(each)}};
        if (!each.lines.empty()) {
            line["lines"] = JsonOf(each.lines);
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

Json JsonOf(const RecordClass& record) {
    Json json = {{"class", record.name},
                 {"soapRecord", record.soapElement},
                 {"element", record.treeElement},
                 {"reads", record.node}};
    if (!record.kind.empty()) {
        json["request"] = record.kind;
        json["answer"] = record.answerElement;
    }
    json["elements"] = JsonOf(ShapeOf(record.name));
    json["text"] = JsonOf(TextOf(record.name));
    return json;
}

using Line = std::vector<std::string>;

/// Columns as wide as their widest cell, two blanks apart.
std::string Table(const std::vector<Line>& lines) {
    std::vector<std::size_t> widths(lines.front().size());
    for (const Line& line : lines) {
        for (std::size_t at = 0; at < line.size(); ++at) {
            widths[at] = std::max(widths[at], line[at].size());
        }
    }
    std::string table;
    for (const Line& line : lines) {
        std::string text;
        for (std::size_t at = 0; at < line.size(); ++at) {
            text += line[at] + std::string(widths[at] + 2 - line[at].size(), ' ');
        }
        table += text.substr(0, text.find_last_not_of(' ') + 1) + "\n";
    }
    return table;
}

void AddLines(const RecordShape& shape, const std::string& indentation, std::vector<Line>* lines) {
    for (const ElementShape& each : shape) {
        lines->push_back({indentation + std::string(each.name), TypeOf(each), FormOf(each)});
        AddLines(each.elements, indentation + "  ", lines);
    }
}

void AddLines(const TextShape& text, const std::string& indentation, std::vector<Line>* lines) {
    for (const LineShape& each : text) {
        lines->push_back({indentation + '"' + each.label + '"', TypeOf(each), FormOf(each)});
        AddLines(each.lines, indentation + "  ", lines);
    }
}

std::string ListOfClasses() {
    std::vector<Line> lines = {{"CLASS", "SOAP RECORD", "ELEMENT", "READS", "REQUEST"}};
    for (const RecordClass& each : RecordClasses()) {
        const std::string list =
            each.AnswersWithList() ? " (" + std::string(each.answerElement) + ")" : "";
        lines.push_back({std::string(each.name), std::string(each.soapElement),
                         std::string(each.treeElement), std::string(each.node),
                         std::string(each.kind) + list});
    }
    return Table(lines);
}

std::string Description(const RecordClass& record) {
    const std::string element = "\"" + std::string(record.treeElement) + "\"";
    std::vector<Line> elements = {{"ELEMENT", "TYPE", "FORM"}};
    AddLines(ShapeOf(record.name), "", &elements);
    std::vector<Line> lines = {{"LINE OF THE TEXT", "TYPE", "FORM"}};
    AddLines(TextOf(record.name), "", &lines);
    return std::string(record.name) + " is made of the SOAP record \"" +
           std::string(record.soapElement) + "\", writes the element " + element + " and reads " +
           (record.node == "parent" ? "the parent of " + element : element) + ".\n\n" +
           Table(elements) + "\n" + Table(lines);
}

std::string Describe(const RecordsOptions& options) {
    if (const RecordClass* const record = FindClass(&RecordClass::name, options.recordClass)) {
        return options.json ? JsonText(JsonOf(*record)) + "\n" : Description(*record);
    }
    if (!options.json) {
        return ListOfClasses();
    }
    Json all = Json::array();
    for (const RecordClass& each : RecordClasses()) {
        all.push_back(JsonOf(each));
    }
    return JsonText(all) + "\n";
}

}  // namespace

Run DeclareRecords(CLI::App* command) {
    const auto options = std::make_shared<RecordsOptions>();
    command
        ->add_option("class", options->recordClass,
                     "One of them, with its elements and the lines of its text")
        ->check(OneOf(RecordClassNames(), "record class"))
        ->type_name("CLASS");
    command->add_flag("--json", options->json, "As JSON, with all elements");
    return [options] { return StatusOf(Print(Describe(*options))); };
}

}  // namespace tool

#include "bench/shared/Agreement.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "bench/shared/Steps.h"

namespace bench {
namespace {

/// Texts of what `steps` leave.
struct Outcome {
    std::string text;
    std::string rest;
    std::string saved;  // empty: there is none
    std::ptrdiff_t tags;
};

Outcome OutcomeOf(const std::string& name, const std::string& steps, int trackCount) {
    const auto contender = MakeContender(name);
    Album album(trackCount, contender->Wanted());
    DoSteps(steps, album.soap(), contender.get());
    const std::string* const text = contender->Saved();
    const std::string saved = text == nullptr ? "" : *text;
    return {contender->Text(), contender->Unprinted(), saved,
            std::count(saved.begin(), saved.end(), '<')};
}

bool Report(const std::string& name, const std::string& steps, const char* what) {
    std::fprintf(stderr, "%s (%s): %s differs from ours\n", name.c_str(), steps.c_str(), what);
    return false;
}

}  // namespace

bool Agree(int trackCount) {
    const Outcome ours = OutcomeOf("ours", "WSR", trackCount);
    bool agrees = true;
    for (const std::string& name : ContenderNames()) {
        for (const std::string steps : {"WSR", "WSFPR"}) {
            const Outcome outcome = OutcomeOf(name, steps, trackCount);
            if (outcome.text != ours.text) {
                agrees = Report(name, steps, "the log text");
            }
            if (outcome.rest != ours.rest) {
                agrees = Report(name, steps, "a field that the log text lacks");
            }
            // The floor has no tree, and gSOAP's text is another one.
            if (outcome.tags != ours.tags && outcome.tags != 0 &&
                name.find("gsoap") == std::string::npos) {
                agrees = Report(name, steps, "the number of tags");
            }
            if (outcome.saved != ours.saved && name == "floor-text") {
                agrees = Report(name, steps, "the XML text");
            }
        }
    }
    return agrees;
}

}  // namespace bench

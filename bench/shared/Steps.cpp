#include "bench/shared/Steps.h"

#include <algorithm>
#include <cstdio>

namespace bench {

// Each step is a function of its own, so that a profiler can tell the steps apart.
#define QUAVERA_BENCH_STEP [[gnu::noinline]] static

QUAVERA_BENCH_STEP void StepWrite(SoapAlbum* soap, Contender* contender) {
    contender->Write(soap);
}
QUAVERA_BENCH_STEP void StepSave(Contender* contender) {
    contender->Save();
}
QUAVERA_BENCH_STEP void StepParse(Contender* contender) {
    contender->Parse();
}
QUAVERA_BENCH_STEP void StepRead(Contender* contender) {
    contender->Read();
}
QUAVERA_BENCH_STEP void StepText(Contender* contender) {
    const std::string text = contender->Text();
    // The text counts as used.
    asm volatile("" : : "r"(text.data()) : "memory");
}
QUAVERA_BENCH_STEP void StepFree(Contender* contender) {
    contender->Free();
}
QUAVERA_BENCH_STEP void StepDrop(Contender* contender) {
    contender->Drop();
}

void DoSteps(const std::string& steps, SoapAlbum* soap, Contender* contender) {
    for (const char step : steps) {
        switch (step) {
            case 'W':
                StepWrite(soap, contender);
                break;
            case 'S':
                StepSave(contender);
                break;
            case 'P':
                StepParse(contender);
                break;
            case 'R':
                StepRead(contender);
                break;
            case 'T':
                StepText(contender);
                break;
            case 'F':
                StepFree(contender);
                break;
            default:
                StepDrop(contender);
                break;
        }
    }
}

void Prepare(const std::string& steps, SoapAlbum* soap, Contender* contender) {
    const auto has = [&](char step) { return steps.find(step) != std::string::npos; };
    DoSteps(has('P') ? "WSR" : "WR", soap, contender);
    if (has('F')) {
        contender->Free();
    }
    if (has('D')) {
        contender->Drop();
    }
}

void RepeatSteps(const std::string& steps, SoapAlbum* soap, Contender* contender, int repeats) {
    for (int at = 0; at < repeats; ++at) {
        DoSteps(steps, soap, contender);
    }
}

namespace {

/// Texts of what `steps` leave.
struct Outcome {
    std::string text;
    std::string rest;
    std::ptrdiff_t tags;
};

Outcome OutcomeOf(const std::string& name, const std::string& steps, int trackCount) {
    const auto contender = MakeContender(name);
    Album album(trackCount, contender->Wanted());
    DoSteps(steps, album.soap(), contender.get());
    const std::string* const saved = contender->Saved();
    return {contender->Text(), contender->Unprinted(),
            saved == nullptr ? 0 : std::count(saved->begin(), saved->end(), '<')};
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
        }
    }
    return agrees;
}

}  // namespace bench

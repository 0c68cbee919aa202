#include "bench/shared/Steps.h"

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

}  // namespace bench

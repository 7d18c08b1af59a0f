// One fuzzing program: the target named by FUZZ_TARGET, fed by the compiler's fuzzer.

#include "fuzz/targets.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const FuzzTarget* const target = [] {
        for (const FuzzTarget& each : fuzzTargets()) {
            if (each.name == FUZZ_TARGET) {
                return &each;
            }
        }
        std::abort();
    }();
    target->run(BytesView(reinterpret_cast<const char*>(bytes), size));
    return 0;
}

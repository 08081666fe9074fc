// The program that the fuzzer drives: vellumark_fuzz --target=NAME, then the fuzzer's own words.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <pthread.h>
#include <sanitizer/common_interface_defs.h>

#include "targets.h"

namespace {

using vellumark::fuzz::Target;

const Target* chosen = nullptr;

const Target* Find(std::string_view name) {
    for (const Target& target : vellumark::fuzz::Targets())
        if (target.name == name)
            return &target;
    return nullptr;
}

// The fuzzer takes no crash of a process for a finding that the program is prepared for.
void ForgetFindings() {
    __sanitizer_set_death_callback(nullptr);
}

[[noreturn]] void ListTargets() {
    for (const Target& target : vellumark::fuzz::Targets())
        std::cout << target.name << '\n';
    std::cout.flush();
    std::_Exit(0);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** words) {
    constexpr std::string_view key = "--target=";
    for (int i = 1; i < *count; ++i)
        if (const std::string_view word = (*words)[i]; word.starts_with(key))
            chosen = Find(word.substr(key.size()));
    if (chosen == nullptr)
        ListTargets();
    pthread_atfork(nullptr, nullptr, ForgetFindings);
    chosen->run("");  // what a target sets up once counts for no run's time
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    chosen->run({reinterpret_cast<const char*>(data), size});
    return 0;
}

// The checks of fuzzers. A failing check ends the process, which libFuzzer and the replay program
// take as a finding.
#pragma once

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace fuzz {

inline void Check(bool holds, const std::string& what) {
    if (holds) return;
    std::cerr << "FINDING: " << what << std::endl;
    std::abort();
}

inline std::string Text(const std::string& text) { return text; }

template <typename Number>
std::string Text(const Number& number) {
    return std::to_string(number);
}

template <typename Element>
std::string Text(const std::vector<Element>& elements) {
    std::string text = "[";
    for (const Element& element : elements) {
        if (text.size() > 1) text += ", ";
        text += Text(element);
    }
    return text + "]";
}

template <typename Value>
void CheckSame(const Value& got, const Value& expected, const std::string& what) {
    if (got == expected) return;
    Check(false, what + " is " + Text(got) + ", expected " + Text(expected));
}

}  // namespace fuzz

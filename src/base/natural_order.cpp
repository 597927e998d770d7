#include "base/natural_order.h"

#include <cctype>

namespace brevane {

namespace {

bool isDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

char folded(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

// The run of digits at the front of `s`, without its leading zeros; `s` moves past it.
std::string_view takeNumber(std::string_view& s) {
    std::size_t end = 0;
    while (end < s.size() && isDigit(s[end])) {
        ++end;
    }
    std::string_view run = s.substr(0, end);
    s.remove_prefix(end);
    while (run.size() > 1 && run.front() == '0') {
        run.remove_prefix(1);
    }
    return run;
}

// <0, 0, >0 as a sorts before, with or after b, case and leading zeros aside.
int compareNatural(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            const std::string_view x = takeNumber(a);
            const std::string_view y = takeNumber(b);
            // Without leading zeros, the longer run is the larger number.
            if (x.size() != y.size()) {
                return x.size() < y.size() ? -1 : 1;
            }
            if (const int c = x.compare(y); c != 0) {
                return c;
            }
            continue;
        }
        const char x = folded(a.front());
        const char y = folded(b.front());
        if (x != y) {
            return static_cast<unsigned char>(x) < static_cast<unsigned char>(y) ? -1 : 1;
        }
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    if (a.empty() != b.empty()) {
        return a.empty() ? -1 : 1;
    }
    return 0;
}

}  // namespace

bool naturalLess(std::string_view a, std::string_view b) {
    const int c = compareNatural(a, b);
    return c != 0 ? c < 0 : a < b;
}

}  // namespace brevane

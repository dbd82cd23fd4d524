#include "Value.h"

#include "Problem.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace kor::veltrano::lumview {

double Value::number() const
{
    if (!isNumber()) {
        throw Problem("expected a number, but found the text \"" + text() + '"');
    }
    return std::get<double>(content);
}

std::string Value::text() const
{
    if (!isNumber()) {
        return std::get<std::string>(content);
    }
    const double number = std::get<double>(content);
    std::array<char, 32> digits{};
    const bool isHuge = std::abs(number) >= 1e15;
    std::snprintf(digits.data(), digits.size(), isHuge ? "%.10g" : "%.6f", number);
    std::string text = digits.data();
    if (!isHuge) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return text == "-0" ? "0" : text;
}

} // namespace kor::veltrano::lumview

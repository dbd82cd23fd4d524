// Value: what a variable holds and a calculation gives, a number or a text.
#pragma once

#include <string>
#include <variant>

namespace kor::veltrano::lumview {

class Value
{
public:
    explicit Value(double number = 0) : content(number) { }
    explicit Value(std::string text) : content(std::move(text)) { }

    bool isNumber() const { return std::holds_alternative<double>(content); }
    // The number; throws a Problem that names the text where this is none.
    double number() const;
    // How the value is printed: numbers with up to six places, without zeros at the end.
    std::string text() const;

    bool operator==(const Value& other) const { return content == other.content; }
    bool operator!=(const Value& other) const { return content != other.content; }

private:
    std::variant<double, std::string> content;
};

} // namespace kor::veltrano::lumview

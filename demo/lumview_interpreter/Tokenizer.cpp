#include "Tokenizer.h"

#include "Problem.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <locale>
#include <sstream>

namespace kor::veltrano::lumview {

namespace {

// Keeps a calculation, which is a tree, from growing deeper than the stack.
constexpr std::size_t longestLine = 1000;

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

// Every byte of a letter beyond ASCII counts as a letter, so that names may be of any language.
bool isLetter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '_'
        || static_cast<unsigned char>(letter) >= 0x80;
}

bool isBlank(char letter)
{
    return letter == ' ' || letter == '\t' || letter == '\r';
}

} // namespace

std::vector<Token> Tokenizer::tokens()
{
    if (line.size() > longestLine) {
        throw Problem("expected a line of at most " + std::to_string(longestLine)
                      + " characters, but found " + std::to_string(line.size()));
    }
    std::vector<Token> all;
    do {
        all.push_back(next());
    } while (all.back().kind != Token::Kind::End);
    return all;
}

Token Tokenizer::next()
{
    while (position < line.size() && isBlank(line[position])) {
        ++position;
    }
    if (position == line.size() || line[position] == '#') {
        return {};
    }
    const char first = line[position];
    if (isDigit(first) || first == '.') {
        return number();
    }
    if (first == '"') {
        return text();
    }
    return isLetter(first) ? word() : symbol();
}

Token Tokenizer::number()
{
    const auto begin = line.begin() + std::ptrdiff_t(position);
    const auto end = std::find_if_not(begin, line.end(), [](char letter) {
        return isDigit(letter) || isLetter(letter) || letter == '.';
    });
    Token token{Token::Kind::Number, std::string(begin, end)};
    position += token.text.size();
    const bool isPlain = std::all_of(begin, end, [](char c) { return isDigit(c) || c == '.'; });
    std::istringstream stream(token.text);
    // A decimal point is a point, whatever the language of the system.
    stream.imbue(std::locale::classic());
    stream >> token.number;
    if (!isPlain || stream.fail() || stream.peek() != std::char_traits<char>::eof()
        || !std::isfinite(token.number)) {
        throw Problem("expected a number as 12 or 0.5, but found \"" + token.text + '"');
    }
    return token;
}

Token Tokenizer::text()
{
    const std::size_t end = line.find('"', position + 1);
    if (end == std::string::npos) {
        throw Problem("expected a \" at the end of the text, but found the end of the line");
    }
    Token token{Token::Kind::Text, line.substr(position + 1, end - position - 1)};
    position = end + 1;
    return token;
}

Token Tokenizer::word()
{
    const auto begin = line.begin() + std::ptrdiff_t(position);
    const auto end = std::find_if_not(
        begin, line.end(), [](char letter) { return isLetter(letter) || isDigit(letter); });
    Token token{Token::Kind::Word, std::string(begin, end)};
    position += token.text.size();
    return token;
}

Token Tokenizer::symbol()
{
    for (const char* known :
         {"<=", ">=", "!=", "==", "<", ">", "=", "+", "-", "*", "/", "(", ")", ","}) {
        if (line.compare(position, std::strlen(known), known) == 0) {
            position += std::strlen(known);
            return {Token::Kind::Symbol, known};
        }
    }
    throw Problem(std::string("the character ") + line[position]
                  + " means nothing here; texts are "
                    "written in \"quotes\", comments begin with #");
}

} // namespace kor::veltrano::lumview

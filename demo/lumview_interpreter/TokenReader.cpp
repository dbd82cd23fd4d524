#include "TokenReader.h"

#include "Problem.h"

namespace kor::veltrano::lumview {

Token TokenReader::take()
{
    Token token = peek();
    if (!isAtEnd()) {
        ++position;
    }
    return token;
}

bool TokenReader::takeIf(const std::string& wordOrSymbol)
{
    const bool isIt = (peek().kind == Token::Kind::Word || peek().kind == Token::Kind::Symbol)
        && peek().text == wordOrSymbol;
    if (isIt) {
        ++position;
    }
    return isIt;
}

void TokenReader::expect(const std::string& wordOrSymbol, const std::string& purpose)
{
    if (!takeIf(wordOrSymbol)) {
        refuse('"' + wordOrSymbol + "\" " + purpose);
    }
}

void TokenReader::expectEnd() const
{
    if (!isAtEnd()) {
        refuse("the end of the line");
    }
}

void TokenReader::refuse(const std::string& expected) const
{
    std::string found = '"' + peek().text + '"';
    if (isAtEnd()) {
        found = "the end of the line";
    } else if (peek().kind == Token::Kind::Text) {
        found = "the text " + found;
    }
    throw Problem("expected " + expected + ", but found " + found);
}

} // namespace kor::veltrano::lumview

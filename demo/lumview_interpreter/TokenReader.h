// TokenReader: walks along the tokens of one line and says what was expected where they don't fit.
#pragma once

#include "Token.h"

#include <string>
#include <vector>

namespace kor::veltrano::lumview {

class TokenReader
{
public:
    // Tokens as a Tokenizer gives them, with an End as the last one.
    explicit TokenReader(std::vector<Token> lineTokens) : tokens(std::move(lineTokens)) { }

    const Token& peek() const { return tokens[position]; }
    bool isAtEnd() const { return peek().kind == Token::Kind::End; }
    // The next token, which is then passed; at the end of the line that is always End.
    Token take();
    // Passes the next token if it is this word or symbol, and says whether it was.
    bool takeIf(const std::string& wordOrSymbol);
    // The same for one that must be there; throws a Problem with the purpose, as in "after the
    // name".
    void expect(const std::string& wordOrSymbol, const std::string& purpose);
    // Throws a Problem unless the line ends here.
    void expectEnd() const;
    // Throws the Problem that something else than the next token was expected.
    [[noreturn]] void refuse(const std::string& expected) const;

private:
    std::vector<Token> tokens;
    std::size_t position = 0;
};

} // namespace kor::veltrano::lumview

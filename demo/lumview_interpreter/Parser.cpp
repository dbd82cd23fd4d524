#include "Parser.h"

#include "LineParser.h"
#include "Problem.h"
#include "Tokenizer.h"

#include <sstream>

namespace kor::veltrano::lumview {

namespace {

constexpr int deepestBlock = 50;

const char* wordOf(Statement::Action action)
{
    switch (action) {
    case Statement::Action::Repeat:
        return "repeat";
    case Statement::Action::While:
        return "while";
    default:
        return "if";
    }
}

bool opensBlock(const Statement& statement)
{
    return statement.action == Statement::Action::Repeat
        || statement.action == Statement::Action::While
        || statement.action == Statement::Action::If;
}

} // namespace

Parser::Parser(const std::string& text)
{
    const std::string byteOrderMark = "\xef\xbb\xbf";
    const bool isMarked = text.compare(0, byteOrderMark.size(), byteOrderMark) == 0;
    std::istringstream stream(isMarked ? text.substr(byteOrderMark.size()) : text);
    std::string line;
    while (std::getline(stream, line)) {
        lines.push_back(line);
    }
}

Program Parser::program()
{
    try {
        nextLine();
        Program statements = block(0);
        if (reader) {
            throw Problem("expected a command, but found an \"" + reader->peek().text
                          + "\" without its repeat, while or if");
        }
        return statements;
    } catch (Problem& problem) {
        problem.setLine(lineNumber);
        throw;
    }
}

std::vector<Statement> Parser::block(int depth)
{
    std::vector<Statement> statements;
    while (reader && reader->peek().text != "end" && reader->peek().text != "else") {
        readStatement(statements, depth);
    }
    return statements;
}

void Parser::readStatement(std::vector<Statement>& statements, int depth)
{
    Statement statement = LineParser(*reader, names).statement();
    statement.line = lineNumber;
    nextLine();
    if (opensBlock(statement)) {
        readBlocks(statement, depth + 1);
    }
    statements.push_back(std::move(statement));
}

void Parser::readBlocks(Statement& opener, int depth)
{
    if (depth > deepestBlock) {
        Problem problem("expected at most " + std::to_string(deepestBlock)
                        + " blocks inside each other");
        problem.setLine(opener.line);
        throw problem;
    }
    opener.block = block(depth);
    if (reader && opener.action == Statement::Action::If && reader->takeIf("else")
        && !readElse(opener, depth)) {
        return;
    }
    if (!reader) {
        Problem problem(std::string("expected an \"end\" for this \"") + wordOf(opener.action)
                        + "\", but found the end of the program");
        problem.setLine(opener.line);
        throw problem;
    }
    reader->expect("end",
                   std::string("for the \"") + wordOf(opener.action) + "\" of line "
                       + std::to_string(opener.line));
    reader->expectEnd();
    nextLine();
}

bool Parser::readElse(Statement& opener, int depth)
{
    if (!reader->isAtEnd()) {
        if (reader->peek().text != "if") {
            reader->refuse("\"if\" or the end of the line after \"else\"");
        }
        readStatement(opener.otherwise, depth);
        return false;
    }
    nextLine();
    opener.otherwise = block(depth);
    return true;
}

bool Parser::nextLine()
{
    while (std::size_t(lineNumber) < lines.size()) {
        ++lineNumber;
        reader.emplace(Tokenizer(lines[std::size_t(lineNumber) - 1]).tokens());
        if (!reader->isAtEnd()) {
            return true;
        }
    }
    reader.reset();
    return false;
}

} // namespace kor::veltrano::lumview

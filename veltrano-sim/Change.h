// Change: a wish to set something that has been checked but not yet been carried out.
//
// Several are checked before the first is carried out, so that a wish with one bad member changes
// nothing at all.
#pragma once

#include <QString>

#include <functional>
#include <utility>

namespace kor::veltrano::sim {

class Change
{
public:
    static Change refused(const QString& reason) { return Change(reason, nullptr); }
    static Change accepted(std::function<void()> action) { return Change({}, std::move(action)); }

    bool isAccepted() const { return action != nullptr; }
    // Why it was refused, for a person to read.
    const QString& reason() const { return text; }
    // Carries an accepted change out.
    void apply() const { action(); }

private:
    Change(QString reason, std::function<void()> work)
        : text(std::move(reason)), action(std::move(work))
    {
    }

    QString text;
    std::function<void()> action;
};

} // namespace kor::veltrano::sim

#include "Variables.h"

namespace kor::veltrano::lumview {

Variables::Variables(Print printLine, std::chrono::milliseconds tellInterval, Clock::Time now)
    : print(std::move(printLine)),
      interval(tellInterval),
      due(tellInterval.count() > 0 ? now + tellInterval : Clock::Time::max())
{
}

void Variables::set(const std::string& name, const Value& value)
{
    const auto [place, isNew] = values.try_emplace(name, value);
    if (!isNew && place->second == value) {
        return;
    }
    place->second = value;
    changed.insert(name);
    if (interval.count() <= 0) {
        tellChanges();
    }
}

const Value* Variables::find(const std::string& name) const
{
    const auto place = values.find(name);
    return place == values.end() ? nullptr : &place->second;
}

void Variables::tellWhenDue(Clock::Time now)
{
    if (now >= due) {
        due = now + interval;
        tellChanges();
    }
}

void Variables::tellChanges()
{
    for (const std::string& name : changed) {
        print("## " + name + ";;" + values.at(name).text() + " ##");
    }
    changed.clear();
}

} // namespace kor::veltrano::lumview

// The system's files that the settings name.
#pragma once

#include <QString>

#include <functional>

namespace kor::veltrano::daemons {

// Calls readLine for each line, without its end, of the file that a setting names. False where the
// file can't be opened or the setting is empty. Any thread.
bool readSettingsFile(const QString& settingsKey,
                      const std::function<void(const QString& line)>& readLine);

} // namespace kor::veltrano::daemons

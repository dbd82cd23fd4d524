// ConfigEntry: one key of a configuration file that may be edited in the browser.
#pragma once

#include <QString>
#include <QStringList>

namespace kor::veltrano::daemons {

struct ConfigEntry {
    // How the browser shows it: 0 plain input, 1 choice of params, 2 choice of files, where params
    // holds the directory and then name filters.
    qint32 type = 0;
    // Absolute path of the configuration file.
    QString file;
    // Name of the section; empty before the first one.
    QString group;
    // The key as written, without its section.
    QString name;
    QString value;
    QStringList params;
};

} // namespace kor::veltrano::daemons

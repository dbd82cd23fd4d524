// The user's programs: plain files in the directory of the setting Lumview/programpath.
//
// A file's name is split at its first dot into "name" and "suffix". Names are not checked: they may
// point outside the directory. All functions: any thread. The writes return false for a body that
// is no JSON.
#pragma once

#include <QByteArray>

namespace kor::veltrano::daemons {

// The reply of /data/program: an array of objects of "id", "name", "old" (the name again), "suffix"
// and "action", which is "running" or "stopped".
QByteArray programList();

// The reply of /data/globalvars: an array of objects of "id", "name" and "value".
QByteArray globalVarList();

// The reply of /data/lumviewout: an array of objects of "id" and "value", the oldest line first.
QByteArray programOutputList();

// The write of /data/renameprogram: an array of objects of "name", "old" and "suffix". Elements
// without a new name are skipped; what could not be renamed stays unsaid.
bool renamePrograms(const QByteArray& body);

// The write of /data/startStopProgram: an object of "name" and "suffix". Stops the program where it
// runs, else starts it in the place of whatever runs.
bool startStopProgram(const QByteArray& body);

// The write of /data/remove: an object of "name" and "suffix". False also where the file could not
// be removed.
bool removeProgram(const QByteArray& body);

} // namespace kor::veltrano::daemons

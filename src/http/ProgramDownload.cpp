#include "http/ProgramDownload.h"

#include "config/ConfigFile.h"
#include "http/FileReply.h"

namespace kor::veltrano::daemons {

void replyProgramDownload(const web::http::http_request& request, const QString& path)
{
    const QString encodedName = QString(path).remove(QLatin1String(programDownloadPrefix));
    const std::string directory =
        settings.value(QStringLiteral("Lumview/programpath")).toStdString();
    const std::string name = web::uri::decode(encodedName.toStdString());
    replyFile(request, directory + "/" + name, "application/octet-stream");
}

} // namespace kor::veltrano::daemons

#include "http/handler.h"

#include "access/Request.h"
#include "config/ConfigFile.h"
#include "daemon/Log.h"
#include "http/CameraReply.h"
#include "http/ContentType.h"
#include "http/FileReply.h"
#include "http/ProgramDownload.h"
#include "http/Query.h"
#include "http/Reply.h"

#include <iostream>
#include <stdexcept>

namespace kor::veltrano::daemons {

using web::http::http_request;
using web::http::methods;
using web::http::status_codes;

namespace {

QString pathOf(const http_request& request)
{
    return QString::fromStdString(request.relative_uri().path());
}

QMap<QString, QString> parametersOf(const http_request& request)
{
    return parseQuery(request.request_uri().query());
}

bool isDataPath(const QString& path)
{
    return path.startsWith(QLatin1String("/data"));
}

void logRequest(const http_request& request, const QString& path)
{
    if (isLogged(3)) {
        logMessage(QString::fromStdString(request.to_string()), 3);
    }
    logMessage(path, 2);
}

// The path is used as it came: neither decoded nor normalised nor kept inside the root.
void replyStaticFile(const http_request& request, const QString& path)
{
    const bool isIndex = path == QLatin1String("/");
    const QString file = isIndex ? QStringLiteral("/index.html") : path;
    const QString root = settings.value(QStringLiteral("General/resourcepath"));
    replyFile(request, (root + file).toStdString(), contentTypeOf(file));
}

// The body's bytes as they came, without a detour that would replace, strip or cut some of them.
QByteArray bytesOf(const std::string& body)
{
    if (body.size() > std::size_t(std::numeric_limits<int>::max())) {
        throw std::length_error("body too large");
    }
    return QByteArray(body.data(), int(body.size()));
}

} // namespace

handler::handler(const std::string& address,
                 const web::http::experimental::listener::http_listener_config& config)
    : listener(address, config)
{
    listener.support(methods::GET, [this](const http_request& request) { handle_get(request); });
    listener.support(methods::PUT,
                     [this](const http_request& request) { handle_put_post(request); });
    listener.support(methods::POST,
                     [this](const http_request& request) { handle_put_post(request); });
    listener.support(methods::DEL, [this](const http_request& request) { handle_delete(request); });
    dataHandler = std::make_unique<DataHandler>();
}

handler::~handler() = default;

pplx::task<void> handler::open()
{
    return listener.open();
}

pplx::task<void> handler::close()
{
    return listener.close();
}

void handler::refuseRequests()
{
    gate.close();
}

void handler::handle_get(http_request request)
{
    const QString path = pathOf(request);
    const RequestGate::Pass pass(gate);
    if (!pass) {
        isDataPath(path) ? replyJson(request, status_codes::OK, {}) : replyUnreadable(request);
        return;
    }
    logRequest(request, path);
    const QMap<QString, QString> parameters = parametersOf(request);
    if (isDataPath(path)) {
        replyToRead(request, path, parameters);
    } else if (path.startsWith(QLatin1String(programDownloadPrefix))) {
        replyProgramDownload(request, path);
    } else if (path.startsWith(QLatin1String("/cam0"))
               && Request{path, parameters}.isGranted(Access::OperatorOrHigher)) {
        replyCameraImage(request);
    } else {
        replyStaticFile(request, path);
    }
}

void handler::replyToRead(const http_request& request, const QString& path,
                          const QMap<QString, QString>& parameters)
{
    const QByteArray result = dataHandler->data(path, parameters);
    if (isLogged(3)) {
        logMessage(QString::fromUtf8(result.constData()), 3);
    }
    replyJson(request, status_codes::OK, result);
}

void handler::handle_put_post(http_request request)
{
    const RequestGate::Pass pass(gate);
    if (!pass) {
        replyJson(request, status_codes::BadRequest, {});
        return;
    }
    const QMap<QString, QString> parameters = parametersOf(request);
    const QString path = pathOf(request);
    request.extract_string(true).then(
        [this, path, parameters, request](const pplx::task<std::string>& body) {
            // Also where the client has gone inside its body: the library keeps a request for ever
            // that nobody replies to.
            try {
                replyToWrite(request, path, parameters, body.get());
            } catch (...) {
                replyStatus(request, status_codes::BadRequest);
            }
        });
}

void handler::replyToWrite(const http_request& request, const QString& path,
                           const QMap<QString, QString>& parameters, const std::string& body)
{
    QByteArray result;
    const RequestGate::Pass pass(gate);
    const bool success = pass && dataHandler->setData(path, parameters, bytesOf(body), result);
    replyJson(request, success ? status_codes::OK : status_codes::BadRequest, result);
}

// Deletes nothing: the client gets its own request back.
void handler::handle_delete(http_request request)
{
    const RequestGate::Pass pass(gate);
    if (pass) {
        parametersOf(request);
    }
    const std::string text = request.to_string();
    std::cout << text << std::endl;
    replyText(request, status_codes::OK, text);
}

} // namespace kor::veltrano::daemons

// DataHandler: the frame around the two chains of rows that give a path its meaning.
//
// Owned by handler. Both operations are called on HTTP threads, by several at once; the object has
// no state of its own. scriptRunner lives exactly as long as it does.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace kor::veltrano::daemons {

class DataHandler
{
public:
    // Both on the main thread.
    DataHandler();
    ~DataHandler();
    DataHandler(const DataHandler&) = delete;
    DataHandler& operator=(const DataHandler&) = delete;

    // The answer to a GET under /data, as JSON text; empty where no row answers.
    QByteArray data(const QString& path, const QMap<QString, QString>& parameters) const;

    // The outcome of a PUT or POST on any path; result gets the reply's body. False where no row
    // answers.
    bool setData(const QString& path, const QMap<QString, QString>& parameters,
                 const QByteArray& data, QByteArray& result) const;
};

} // namespace kor::veltrano::daemons

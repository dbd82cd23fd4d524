// AccessManager: who may do what.
//
// Keeps the role that each session has logged in to, and the role that everybody has without. A
// session is whatever text the client sends as the query item "sid"; clients that send none share
// the empty one. Sessions never expire and are not saved. Built and deleted by main; role() and
// login() run on any thread, and mutex guards the sessions between them.
//
//   no entry --right password for a role above the default--> entry
//   entry    --right password for another such role--> entry
//   entry    --request for a role not above the default--> no entry
//   any      --wrong password--> unchanged
#pragma once

#include <QByteArray>
#include <QMap>
#include <QMutex>
#include <QObject>
#include <QString>

namespace kor::veltrano::daemons {

class AccessManager : public QObject
{
    Q_OBJECT

public:
    // Fixes the default role by the passwords in the settings: without an administrator's password
    // everybody is admin, without an operator's one everybody is operator.
    AccessManager();

    // The role number of a session.
    int role(const QString& sid) const;

    // Logs the session in to a role, or out where the role is not above the default. The result is
    // the session's new role, or the default role where the password is wrong: the session then
    // keeps what it had.
    int login(const QString& sid, int requestedRole, const QString& password);

    // The write of /data/login: an object with the strings "role" and "password"; result gets an
    // object with the string "message" and the boolean "success", which is false only where the
    // body is no JSON. Always true.
    bool setData(const QByteArray& data, const QMap<QString, QString>& parameters,
                 QByteArray& result);

private:
    mutable QMutex mutex;
    // Only roles above the default one.
    QMap<QString, int> sessions;
    int defaultRole;
};

extern AccessManager* accessManager;

} // namespace kor::veltrano::daemons

// StartRequests: catches the requests to start a script before the object gets them, so that no
// process is started.
#pragma once

#include "network/NetworkScript.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {

class StartRequests : public QObject
{
public:
    explicit StartRequests(NetworkScript& script) : watched(script)
    {
        script.installEventFilter(this);
    }

    // The arguments of all requests since the last call.
    QList<QStringList> takeAll()
    {
        QCoreApplication::sendPostedEvents(&watched);
        QList<QStringList> taken;
        taken.swap(caught);
        return taken;
    }

    // Those of the one request that there must be.
    QStringList takeOne()
    {
        const QList<QStringList> taken = takeAll();
        EXPECT_EQ(taken.size(), 1);
        return taken.value(0);
    }

    bool eventFilter(QObject* /*object*/, QEvent* event) override
    {
        if (int(event->type()) != NetworkScript::StartEvent::eventType) {
            return false;
        }
        caught.append(static_cast<NetworkScript::StartEvent*>(event)->parameters);
        return true;
    }

private:
    NetworkScript& watched;
    QList<QStringList> caught;
};

} // namespace kor::veltrano::daemons

// Text: hands a copied text out as the `const char*` that the public getters give.
#pragma once

#include <QByteArray>

namespace kor::veltrano::api2::detail
{

// Keeps the text for the calling thread and gives its bytes, which stay valid until the same
// thread calls this with the same Getter again. Getter is any type that names the getter.
template<class Getter>
const char* keptForThread(const QByteArray& text)
{
    thread_local QByteArray kept;
    kept = text;
    return kept.constData();
}

} // namespace kor::veltrano::api2::detail

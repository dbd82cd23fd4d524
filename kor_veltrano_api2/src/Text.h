// Text: hands a copied text out as the `const char*` that the public getters give.
#pragma once

#include <string>

namespace kor::veltrano::api2::detail {

// Keeps the text for the calling thread and gives its bytes, which stay valid until the same
// thread calls this with the same Getter again. Getter is any type that names the getter.
template<class Getter>
const char* keptForThread(const std::string& text)
{
    static thread_local std::string kept;
    kept = text;
    return kept.c_str();
}

} // namespace kor::veltrano::api2::detail

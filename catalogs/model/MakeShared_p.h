// How the library makes the objects that it shares. For its own use.
#pragma once

#include <QSharedPointer>

#include <memory>
#include <utility>

namespace Orvida::Catalogs {

/// A shared pointer to a new `T`. In place of `QSharedPointer::create`, which reads an uninitialised pointer
/// when there is no memory for the object, and of `QSharedPointer(new T)`, which leaks the object when there
/// is none for the counter.
template <typename T, typename... Arguments>
QSharedPointer<T> makeShared(Arguments &&...arguments)
{
    auto owned = std::make_unique<T>(std::forward<Arguments>(arguments)...);
    QSharedPointer<T> shared(owned.get());
    static_cast<void>(owned.release());
    return shared;
}

} // namespace Orvida::Catalogs

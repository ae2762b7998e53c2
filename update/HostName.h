#pragma once

#include <QString>
#include <functional>

class QObject;

namespace quillon
{

/// Waits until the name of a host has been looked up, known or not, and calls back with true; with false after `mostMs`. At once
/// for an address in numbers. The network stack's own look-up can neither be given up nor left behind: with a name server that is
/// silent it would hold the program's end for as long as the system's resolver tries. On the context's thread; not when that has
/// gone.
void awaitHostName(QObject* context, const QString& host, int mostMs, const std::function<void(bool)>& whenDone);

} // namespace quillon

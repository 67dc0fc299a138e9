#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <systemd/sd-bus.h>

namespace mireval {

inline constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

/// Reads an array of texts; empty if something else comes next.
QByteArrayList readTexts(sd_bus_message* message);

/// Reads NameOwnerChanged: whether the name has an owner now.
bool nameHasOwner(sd_bus_message* change);

/// Keeps the activation token of a call, with which the window opened for the call may take the keyboard.
/// An empty token changes nothing.
void setActivationToken(const QByteArray& token);

}  // namespace mireval

#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <systemd/sd-bus.h>

namespace mireval {

/// For `propertyGetter`.
template <typename Object>
int appendTo(sd_bus_message* reply, void* object, int (*append)(sd_bus_message* reply, Object& object)) {
  return append(reply, *static_cast<Object*>(object));
}

/// The getter of a property for sd-bus's table of an object: the object's function that appends the value.
template <auto append>
int propertyGetter(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* object,
                   sd_bus_error*) {
  return appendTo(reply, object, append);
}

/// Reads an array of texts; empty if something else comes next.
QByteArrayList readTexts(sd_bus_message* message);

/// Reads NameOwnerChanged: whether the name has an owner now.
bool nameHasOwner(sd_bus_message* change);

/// Passes on what a caller sent along so that the window opened for this call may have the keyboard.
/// Without a token nothing changes.
void setActivationToken(const QByteArray& token);

}  // namespace mireval

#pragma once

#include <QByteArray>

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>

/// Handlers and getters for sd-bus, which pass on to a member of the object that is their user data.
namespace mireval {

/// Calls the member function, with the message if it takes one; gives the value of a data member.
template <typename Object, typename Member>
decltype(auto) callMember(Member Object::*member, void* object, sd_bus_message* message) {
  if constexpr (std::is_invocable_v<Member Object::*, Object&, sd_bus_message*>) {
    return std::invoke(member, *static_cast<Object*>(object), message);
  } else {
    return std::invoke(member, *static_cast<Object*>(object));
  }
}

/// The handler of a signal or of the answer to a call.
template <auto member>
int messageHandler(sd_bus_message* message, void* object, sd_bus_error*) {
  callMember(member, object, message);
  return 0;
}

/// The handler of a method. The member function sends the answer and returns the result of that, or it
/// returns nothing, and the answer is empty.
template <auto member>
int methodHandler(sd_bus_message* call, void* object, sd_bus_error*) {
  if constexpr (std::is_void_v<decltype(callMember(member, object, call))>) {
    callMember(member, object, call);
    return sd_bus_reply_method_return(call, nullptr);
  } else {
    return callMember(member, object, call);
  }
}

/// The handler of a method that does nothing.
inline int ignoreCall(sd_bus_message* call, void*, sd_bus_error*) {
  return sd_bus_reply_method_return(call, nullptr);
}

/// Appends a number, or a text in any of its forms.
template <typename Value>
int appendValue(sd_bus_message* reply, const Value& value) {
  if constexpr (std::is_same_v<Value, QByteArray>) {
    return sd_bus_message_append(reply, "s", value.constData());
  } else {
    constexpr const char* type = std::is_same_v<Value, bool>            ? "b"
                                 : std::is_same_v<Value, double>        ? "d"
                                 : std::is_same_v<Value, std::int32_t>  ? "i"
                                 : std::is_same_v<Value, std::int64_t>  ? "x"
                                 : std::is_same_v<Value, std::uint32_t> ? "u"
                                                                        : "s";
    return sd_bus_message_append(reply, type, value);
  }
}

/// The getter of a property: a data member or a member function that returns the value, or a member function
/// that appends the value to the message and returns the result of that, an int.
template <auto member>
int propertyGetter(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* object,
                   sd_bus_error*) {
  if constexpr (std::is_same_v<decltype(callMember(member, object, reply)), int>) {
    return callMember(member, object, reply);
  } else {
    return appendValue(reply, callMember(member, object, reply));
  }
}

/// The getter of a property that always has this value.
template <auto value, typename Type = decltype(value)>
int constantGetter(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                   sd_bus_error*) {
  return appendValue(reply, static_cast<Type>(value));
}

/// A text as an argument of a template.
template <std::size_t size>
struct TextArgument {
  constexpr TextArgument(const char (&literal)[size]) { std::copy_n(literal, size, text); }

  char text[size]{};
};

/// The getter of a property that always has this text.
template <TextArgument value>
int textGetter(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*, sd_bus_error*) {
  return appendValue(reply, value.text);
}

/// The getter of a property that is always an empty array of this type.
template <TextArgument type>
int emptyArrayGetter(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                     sd_bus_error*) {
  return sd_bus_message_append(reply, type.text, 0U);
}

}  // namespace mireval

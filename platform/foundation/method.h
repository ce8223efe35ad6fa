#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>

#include "platform/foundation/ClassDescription.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/Subclass.h"

/// Builds the entries of a class's method table from member functions, for example
///   constexpr auto kMethods = methods<QDPane>(method<&QDPane::showLove>("showLove"));
/// The shape of the member decides what it is: an action takes nothing or the sender, a getter
/// takes a row, or nothing at all, and gives a value or nothing, a setter takes a value and a row,
/// and a static member that makes an object from another one is a factory.

namespace method_detail {

template <auto member, class Shape = decltype(member)>
struct Call;

template <auto member, class Receiver>
struct Call<member, void (Receiver::*)()> {
  static void invoke(NSObject& receiver, NSObject* /*sender*/) {
    (static_cast<Receiver&>(receiver).*member)();
  }
};

template <auto member, class Receiver, class Sender>
struct Call<member, void (Receiver::*)(const std::shared_ptr<Sender>&)> {
  static void invoke(NSObject& receiver, NSObject* sender) {
    const auto object = sender ? cast<Sender>(sender->shared_from_this()) : nullptr;
    (static_cast<Receiver&>(receiver).*member)(object);
  }
};

template <auto member, class Receiver, class Row>
struct Call<member, std::optional<PropertyListValue> (Receiver::*)(const Row&)> {
  static std::optional<PropertyListValue> invoke(NSObject& receiver, NSObject& row) {
    const auto* typed = dynamic_cast<const Row*>(&row);
    return typed ? (static_cast<Receiver&>(receiver).*member)(*typed) : std::nullopt;
  }
};

template <auto member, class Receiver, class Value>
struct Call<member, Value (Receiver::*)() const> {
  static std::optional<PropertyListValue> invoke(NSObject& receiver, NSObject& /*row*/) {
    return (static_cast<const Receiver&>(receiver).*member)();
  }
};

template <auto member, class Made, class Argument>
struct Call<member, std::shared_ptr<Made> (*)(const std::shared_ptr<Argument>&)> {
  static std::shared_ptr<NSObject> invoke(const std::shared_ptr<NSObject>& argument) {
    return member(cast<Argument>(argument));
  }
};

template <auto member, class Receiver, class Row>
struct Call<member, void (Receiver::*)(const PropertyListValue&, const Row&)> {
  static void invoke(NSObject& receiver, const PropertyListValue& value, NSObject& row) {
    if (const auto* typed = dynamic_cast<const Row*>(&row)) {
      (static_cast<Receiver&>(receiver).*member)(value, *typed);
    }
  }
};

/// Whose objects can be the receiver; any for a static member.
template <class Shape>
struct Receiver {
  using Type = NSObject;
};

template <class Shape, class Class>
struct Receiver<Shape Class::*> {
  using Type = Class;
};

}  // namespace method_detail

/// An entry for the table of T or of a class that derives from it.
template <class T>
struct MethodOf {
  Method entry;
};

template <auto member>
constexpr auto method(std::string_view selector) {
  using Receiver = typename method_detail::Receiver<decltype(member)>::Type;
  return MethodOf<Receiver>{{selector, &method_detail::Call<member>::invoke}};
}

template <class T, class... Receivers>
constexpr Methods<T, sizeof...(Receivers)> methods(const MethodOf<Receivers>&... list) {
  static_assert((std::is_base_of_v<Receivers, T> && ...), "each method is one of T's own");
  return {{list.entry...}};
}

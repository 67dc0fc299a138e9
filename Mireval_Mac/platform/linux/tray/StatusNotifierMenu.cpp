#include "platform/linux/tray/StatusNotifierMenu.h"

#include "platform/linux/bus/BusHandlers.h"
#include "platform/linux/bus/BusValues.h"

#include <QCoreApplication>

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <vector>

namespace mireval {
namespace {

constexpr std::uint32_t revision = 1;
constexpr std::int32_t root = 0;
constexpr std::int32_t entry = 1;

using Ids = std::vector<std::int32_t>;

bool exists(std::int32_t id) {
  return id == root || id == entry;
}

bool isChoice(std::int32_t id, std::string_view event) {
  return id == entry && event == "clicked";
}

Ids readIds(sd_bus_message* call) {
  Ids ids;
  std::int32_t id = 0;
  sd_bus_message_enter_container(call, 'a', "i");
  while (sd_bus_message_read_basic(call, 'i', &id) > 0) {
    ids.push_back(id);
  }
  sd_bus_message_exit_container(call);
  return ids;
}

const char* propertyName(std::int32_t id) {
  return id == root ? "children-display" : "label";
}

/// The value of that property, as a variant.
int appendValue(sd_bus_message* reply, std::int32_t id) {
  const QByteArray label = QCoreApplication::applicationName().toUtf8();
  return sd_bus_message_append(reply, "v", "s", id == root ? "submenu" : label.constData());
}

/// The requested ones of the item's properties; all if no name is given.
void appendProperties(sd_bus_message* reply, std::int32_t id, const QByteArrayList& names) {
  sd_bus_message_open_container(reply, 'a', "{sv}");
  if (names.empty() || names.contains(propertyName(id))) {
    sd_bus_message_open_container(reply, 'e', "sv");
    sd_bus_message_append_basic(reply, 's', propertyName(id));
    appendValue(reply, id);
    sd_bus_message_close_container(reply);
  }
  sd_bus_message_close_container(reply);
}

/// The item with `depth` levels of children; all levels if that is negative.
void appendLayout(sd_bus_message* reply, std::int32_t id, std::int32_t depth, const QByteArrayList& names) {
  sd_bus_message_open_container(reply, 'r', "ia{sv}av");
  sd_bus_message_append_basic(reply, 'i', &id);
  appendProperties(reply, id, names);
  sd_bus_message_open_container(reply, 'a', "v");
  if (id == root && depth != 0) {
    sd_bus_message_open_container(reply, 'v', "(ia{sv}av)");
    appendLayout(reply, entry, 0, names);
    sd_bus_message_close_container(reply);
  }
  sd_bus_message_close_container(reply);
  sd_bus_message_close_container(reply);
}

int appendIds(sd_bus_message* reply, const Ids& ids) {
  return sd_bus_message_append_array(reply, 'i', ids.data(), ids.size() * sizeof(Ids::value_type));
}

int refuse(sd_bus_message* call) {
  return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "The menu has no such item");
}

/// Sends the answer that `append` fills. If it cannot be made or sent, sd-bus answers with the error.
int answer(sd_bus_message* call, const auto& append) {
  sd_bus_message* reply = nullptr;
  int result = sd_bus_message_new_method_return(call, &reply);
  if (result >= 0) {
    append(reply);
    result = sd_bus_send(nullptr, reply, nullptr);
  }
  sd_bus_message_unref(reply);
  return result;
}

int getLayout(sd_bus_message* call, void*, sd_bus_error*) {
  std::int32_t parent = root;
  std::int32_t depth = 0;
  sd_bus_message_read(call, "ii", &parent, &depth);
  const QByteArrayList names = readTexts(call);
  if (!exists(parent)) {
    return refuse(call);
  }
  return answer(call, [&](sd_bus_message* reply) {
    sd_bus_message_append(reply, "u", revision);
    appendLayout(reply, parent, depth, names);
  });
}

int getGroupProperties(sd_bus_message* call, void*, sd_bus_error*) {
  Ids ids = readIds(call);
  const QByteArrayList names = readTexts(call);
  if (ids.empty()) {
    ids = {root, entry};
  }
  return answer(call, [&](sd_bus_message* reply) {
    sd_bus_message_open_container(reply, 'a', "(ia{sv})");
    for (const std::int32_t id : ids) {
      if (exists(id)) {
        sd_bus_message_open_container(reply, 'r', "ia{sv}");
        sd_bus_message_append_basic(reply, 'i', &id);
        appendProperties(reply, id, names);
        sd_bus_message_close_container(reply);
      }
    }
    sd_bus_message_close_container(reply);
  });
}

int getProperty(sd_bus_message* call, void*, sd_bus_error*) {
  std::int32_t id = root;
  const char* name = nullptr;
  sd_bus_message_read(call, "is", &id, &name);
  if (!exists(id) || std::string_view(name) != propertyName(id)) {
    return refuse(call);
  }
  return answer(call, [id](sd_bus_message* reply) { appendValue(reply, id); });
}

int aboutToShow(sd_bus_message* call, void*, sd_bus_error*) {
  std::int32_t id = root;
  sd_bus_message_read(call, "i", &id);
  return exists(id) ? sd_bus_reply_method_return(call, "b", 0) : refuse(call);
}

int aboutToShowGroup(sd_bus_message* call, void*, sd_bus_error*) {
  const Ids ids = readIds(call);
  Ids unknown;
  std::ranges::remove_copy_if(ids, std::back_inserter(unknown), exists);
  if (!ids.empty() && unknown.size() == ids.size()) {
    return refuse(call);
  }
  return answer(call, [&unknown](sd_bus_message* reply) {
    appendIds(reply, {});
    appendIds(reply, unknown);
  });
}

}  // namespace

const sd_bus_vtable StatusNotifierMenu::menuTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("GetLayout", SD_BUS_ARGS("i", parentId, "i", recursionDepth, "as", propertyNames),
                            SD_BUS_RESULT("u", revision, "(ia{sv}av)", layout), getLayout, 0),
    SD_BUS_METHOD_WITH_ARGS("GetGroupProperties", SD_BUS_ARGS("ai", ids, "as", propertyNames),
                            SD_BUS_RESULT("a(ia{sv})", properties), getGroupProperties, 0),
    SD_BUS_METHOD_WITH_ARGS("GetProperty", SD_BUS_ARGS("i", id, "s", name), SD_BUS_RESULT("v", value),
                            getProperty, 0),
    SD_BUS_METHOD_WITH_ARGS("Event", SD_BUS_ARGS("i", id, "s", eventId, "v", data, "u", timestamp),
                            SD_BUS_NO_RESULT, methodHandler<&StatusNotifierMenu::handleEvent>, 0),
    SD_BUS_METHOD_WITH_ARGS("EventGroup", SD_BUS_ARGS("a(isvu)", events), SD_BUS_RESULT("ai", idErrors),
                            methodHandler<&StatusNotifierMenu::handleEventGroup>, 0),
    SD_BUS_METHOD_WITH_ARGS("AboutToShow", SD_BUS_ARGS("i", id), SD_BUS_RESULT("b", needUpdate), aboutToShow,
                            0),
    SD_BUS_METHOD_WITH_ARGS("AboutToShowGroup", SD_BUS_ARGS("ai", ids),
                            SD_BUS_RESULT("ai", updatesNeeded, "ai", idErrors), aboutToShowGroup, 0),
    SD_BUS_SIGNAL_WITH_ARGS("ItemsPropertiesUpdated",
                            SD_BUS_ARGS("a(ia{sv})", updatedProps, "a(ias)", removedProps), 0),
    SD_BUS_SIGNAL_WITH_ARGS("LayoutUpdated", SD_BUS_ARGS("u", revision, "i", parent), 0),
    SD_BUS_SIGNAL_WITH_ARGS("ItemActivationRequested", SD_BUS_ARGS("i", id, "u", timestamp), 0),
    SD_BUS_PROPERTY("Version", "u", constantGetter<3U>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("TextDirection", "s", textGetter<"ltr">, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Status", "s", textGetter<"normal">, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconThemePath", "as", emptyArrayGetter<"as">, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END,
};

void StatusNotifierMenu::appearOn(MessageBus& bus) {
  m_object = bus.addObject(objectPath, interface, menuTable, this);
}

int StatusNotifierMenu::handleEvent(sd_bus_message* call) {
  std::int32_t id = root;
  const char* event = nullptr;
  sd_bus_message_read(call, "is", &id, &event);
  if (!exists(id)) {
    return refuse(call);
  }
  if (isChoice(id, event)) {
    Q_EMIT chosen();
  }
  return sd_bus_reply_method_return(call, nullptr);
}

int StatusNotifierMenu::handleEventGroup(sd_bus_message* call) {
  bool isChosen = false;
  bool anyExists = false;
  Ids unknown;
  sd_bus_message_enter_container(call, 'a', "(isvu)");
  while (sd_bus_message_enter_container(call, 'r', "isvu") > 0) {
    std::int32_t id = root;
    const char* event = nullptr;
    sd_bus_message_read(call, "is", &id, &event);
    sd_bus_message_skip(call, "vu");
    sd_bus_message_exit_container(call);
    isChosen = isChosen || isChoice(id, event);
    if (exists(id)) {
      anyExists = true;
    } else {
      unknown.push_back(id);
    }
  }
  sd_bus_message_exit_container(call);
  if (isChosen) {
    Q_EMIT chosen();
  }
  if (!anyExists && !unknown.empty()) {
    return refuse(call);
  }
  return answer(call, [&unknown](sd_bus_message* reply) { appendIds(reply, unknown); });
}

}  // namespace mireval

#pragma once

#include "fakes/EventLog.h"
#include "platform/ResourceBundle.h"

#include <QString>

#include <memory>
#include <set>

namespace mireval {

/// Has the resources that the test names, each at "/bundle/<subdirectory>/<name>.<extension>".
/// Event: "bundle: <subdirectory>/<name>.<extension>" for each look-up.
class FakeResourceBundle final : public ResourceBundle {
 public:
  explicit FakeResourceBundle(std::shared_ptr<EventLog> log = makeEventLog());

  /// Both take "<subdirectory>/<name>.<extension>".
  void add(const QString& resource) { m_resources.insert(resource); }
  void remove(const QString& resource) { m_resources.erase(resource); }

  std::optional<std::filesystem::path> urlForResource(const QString& name, const QString& extension,
                                                      const QString& subdirectory) const override;

 private:
  const std::shared_ptr<EventLog> m_log;
  std::set<QString> m_resources;
};

}  // namespace mireval

#pragma once

#include <QCoreApplication>

namespace mireval {

/// The application object of a test.
class TestApplication {
  int m_argumentCount = 1;
  char m_programName[5] = "test";
  char* m_arguments[2] = {m_programName, nullptr};
  QCoreApplication m_application{m_argumentCount, m_arguments};
};

}  // namespace mireval

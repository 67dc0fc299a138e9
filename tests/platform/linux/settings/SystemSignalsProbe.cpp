// Says what the system tells of languages and colours: one line at the start and one for each change.
#include "platform/linux/settings/PortalColorScheme.h"
#include "platform/linux/settings/SystemLocale.h"

#include <QGuiApplication>

#include <cstdio>

using namespace mireval;
using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const SystemLocale locale;
  MessageBus sessionBus(MessageBus::Kind::session);
  const PortalColorScheme colorScheme(sessionBus);
  const auto say = [&] {
    std::printf(
        "languages=%s localizations=%s locale=%s %s\n",
        qPrintable(locale.preferredLanguages().join(QChar(u','))),
        qPrintable(
            locale.preferredLocalizations({u"en"_s, u"zh-Hans"_s, u"zh-Hant"_s, u"ja"_s}).join(QChar(u','))),
        qPrintable(locale.currentLocaleIdentifier()), colorScheme.isDark() ? "dark" : "light");
    std::fflush(stdout);
  };
  QObject::connect(&locale, &LocaleChanges::currentLocaleDidChange, say);
  QObject::connect(&colorScheme, &ColorScheme::darkChanged, say);
  say();
  return QGuiApplication::exec();
}

#include "support/QtPrinters.h"
#include "ui/PanelFixture.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <memory>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

/// A view that has only bindings to texts.
class LocalizationBindingTest : public PanelFixture {
 protected:
  LocalizationBindingTest() {
    m_engine.addImportPath(u"qrc:/"_s);
    QQmlEngine::setObjectOwnership(&m_localization, QQmlEngine::CppOwnership);
    QQmlComponent component(&m_engine);
    component.setData(R"(
        import QtQml
        import Mireval

        QtObject {
            required property AppLocalization localization

            property string quit: localization.text(L10nKeys.quit, localization.effectiveLanguage)
            property string creative: localization.moodTitle(Moods.creative, localization.effectiveLanguage)
            property string pause: localization.spokenLabel("pause.fill", localization.effectiveLanguage)
            property string language: localization.displayName(localization.effectiveLanguage)
            property string detached: localization.text(L10nKeys.quit) + localization.moodTitle(Moods.creative)
        }
        )",
                      QUrl());
    m_view.reset(component.createWithInitialProperties(
        {{u"localization"_s, QVariant::fromValue<QObject*>(&m_localization)}}));
    EXPECT_NE(m_view, nullptr) << component.errorString().toStdString();
  }

  QString text(const char* property) const {
    return m_view == nullptr ? QString() : m_view->property(property).toString();
  }

  QQmlEngine m_engine;
  std::unique_ptr<QObject> m_view;
};

TEST_F(LocalizationBindingTest, ShowTheEffectiveLanguage) {
  EXPECT_EQ(text("quit"), u"Quit"_s);
  EXPECT_EQ(text("creative"), u"Create"_s);
  EXPECT_EQ(text("pause"), u"Pause"_s);
  EXPECT_EQ(text("language"), u"English"_s);
  EXPECT_EQ(text("detached"), u"QuitCreate"_s);
}

TEST_F(LocalizationBindingTest, FollowTheOption) {
  m_localization.setLanguageOption(AppLanguageOption::japanese);
  EXPECT_EQ(text("quit"), u"終了"_s);
  EXPECT_EQ(text("creative"), u"創造"_s);
  EXPECT_EQ(text("pause"), u"一時停止"_s);
  EXPECT_EQ(text("language"), u"日本語"_s);

  m_localization.setLanguageOption(AppLanguageOption::chineseSimplified);
  EXPECT_EQ(text("quit"), u"退出"_s);
  EXPECT_EQ(text("creative"), u"创意"_s);
  EXPECT_EQ(text("pause"), u"暂停"_s);
  EXPECT_EQ(text("language"), u"简体中文"_s);
}

TEST_F(LocalizationBindingTest, FollowTheSystem) {
  m_systemLanguages.setPreferredLanguages({u"zh_TW"_s});
  EXPECT_EQ(text("language"), u"English"_s);
  m_localeChanges.change();
  m_mainThread.runAll();
  EXPECT_EQ(text("quit"), u"退出"_s);
  EXPECT_EQ(text("creative"), u"創意"_s);
  EXPECT_EQ(text("pause"), u"暫停"_s);
  EXPECT_EQ(text("language"), u"繁體中文"_s);
}

}  // namespace
}  // namespace mireval

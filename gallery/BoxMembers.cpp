#include "controls/FramelessWindow.h"
#include "controls/MessageBoxS1M1.h"
#include "controls/MessageBoxS2M1.h"
#include "controls/MessageBoxS3M1.h"
#include "controls/MessageBoxWidget.h"
#include "gallery/Member.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace quillon::gallery
{

namespace
{

/// A secondary window, shown as a part of the page.
template<typename Window> Window* inPage(Window* window)
{
    window->setWindowFlags(Qt::Widget);
    window->setMovable(false);
    window->setResizable(false);
    return window;
}

constexpr QSize kSize{300, 200};
constexpr const char* kWorkspace = "R47_Live_Friday";

Member frameless()
{
    const auto looking = [](const Words& state, int look) {
        return Look<FramelessWindow>{state, [look](FramelessWindow& window) {
                                         window.setLook(look);
                                         window.setWindowTitle(u"Quillon"_s);
                                         auto* body = new QLabel(u"1 2 3"_s);
                                         body->setAlignment(Qt::AlignCenter);
                                         window.setBody(body);
                                     }};
    };
    return member<FramelessWindow>("FramelessWindow", kSize,
                                   {looking({"With title bar", "有标题栏"}, 0), looking({"Body only", "仅内容"}, 1)}, {},
                                   [](const Setting&) { return inPage(new FramelessWindow); });
}

Member lines()
{
    return member<MessageBoxS1M1>(
        "MessageBoxS1M1", kSize,
        {{{"Question", "提问"},
          [](MessageBoxS1M1& box) {
              box.setWindowTitle(u"Quillon"_s);
              for (const auto& [line, text] : {std::pair{0, u"48 kHz"_s}, {1, u"44.1 kHz → 48 kHz?"_s}, {2, u"R47"_s}})
                  box.widget()->setLabelText(line, text);
              box.widget()->setButtonText(0, u"Yes"_s);
              box.widget()->setButtonText(1, u"No"_s);
          }}},
        {}, [](const Setting&) { return inPage(new MessageBoxS1M1); });
}

Member choices()
{
    return member<MessageBoxS2M1>(
        "MessageBoxS2M1", kSize,
        {{{"Choice", "选择"},
          [](MessageBoxS2M1& box) {
              box.setWindowTitle(u"Quillon"_s);
              for (const auto& [line, text] : {std::pair{0, u"44.1 kHz"_s}, {1, u"48 kHz"_s}, {2, u"96 kHz"_s}})
                  box.widget()->setChoiceText(line, text);
              box.widget()->setButtonText(0, u"Yes"_s);
              box.widget()->setButtonText(1, u"No"_s);
          }}},
        {}, [](const Setting&) { return inPage(new MessageBoxS2M1); });
}

/// A fixed body, by itself and in its window.
template<typename Body> Member body(const char* className)
{
    const auto told = [](Body& it) {
        if constexpr (requires { it.setName({}); })
            it.setName(QString::fromLatin1(kWorkspace));
    };
    return member<Body>(className, kSize, {{{"Question", "提问"}, told}}, {Touch::Focus});
}

Member wrapper()
{
    const auto around = [](const Words& state) {
        // The window takes its name from its body.
        return Look<MessageBoxS3M1>{state, [](MessageBoxS3M1& box) { box.body()->setAccessibleName(box.objectName()); }};
    };
    return member<MessageBoxS3M1>("MessageBoxS3M1", kSize, {around({"Around a body", "含内容"})}, {}, [](const Setting& setting) {
        auto* body = new MessageBoxWidget4;
        body->setLanguage(setting.language);
        return inPage(new MessageBoxS3M1(body));
    });
}

} // namespace

QList<Member> boxMembers()
{
    return {
        frameless(),
        lines(),
        choices(),
        wrapper(),
        body<MessageBoxWidget1>("MessageBoxWidget1"),
        body<MessageBoxWidget2>("MessageBoxWidget2"),
        body<MessageBoxWidget3>("MessageBoxWidget3"),
        body<MessageBoxWidget4>("MessageBoxWidget4"),
    };
}

} // namespace quillon::gallery

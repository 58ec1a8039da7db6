#pragma once
// The one message-box service: every box the system shows goes through Show.
// The window library installs a presenter that shows real boxes; the tests
// install one that records what was shown and gives scripted answers.
#include <QString>
#include <functional>

namespace MsgBox {

enum class Icon { None, Information, Exclamation, Critical, Question };
enum class Buttons { Ok, YesNo, OkCancel, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct Box {
    QString text;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    QString title;  // already resolved: never empty
};

using Presenter = std::function<Answer(const Box&)>;

// Installs the presenter; returns the former one.
Presenter SetPresenter(Presenter p);

// The application's title, used where a box has none of its own.
QString AppTitle();

Answer Show(const QString& text, Icon icon = Icon::None, Buttons buttons = Buttons::Ok,
            const QString& title = QString());

// Shorthands for the kinds the windows use.
inline void Info(const QString& text, const QString& title = QString()) {
    Show(text, Icon::Information, Buttons::Ok, title);
}
inline void Warn(const QString& text, const QString& title = QString()) {
    Show(text, Icon::Exclamation, Buttons::Ok, title);
}
inline bool AskYes(const QString& text, const QString& title = QString(),
                   Icon icon = Icon::Question) {
    return Show(text, icon, Buttons::YesNo, title) == Answer::Yes;
}

// The common message of a failed read.
inline const QString& ReadFailText() {
    static const QString t = QStringLiteral("读取数据库出现异常！请检查网络，重新启动程序");
    return t;
}
inline void ReadFail() {
    Warn(ReadFailText(), QStringLiteral("提示"));
}

}  // namespace MsgBox

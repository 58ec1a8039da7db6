#pragma once
// A run-time error of the system: a failed conversion, an overflow, a read
// from a closed result. The event handler that meets it shows its text in a
// message box and stops (see Guard in the platform library); the process goes on.
#include <QString>
#include <stdexcept>

class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(const QString& text)
        : std::runtime_error(text.toStdString()), text_(text) {}
    const QString& text() const { return text_; }

    // The texts of the errors the system raises.
    static QString typeMismatch() { return QStringLiteral("运行时错误 '13':\n\n类型不匹配"); }
    static QString overflow() { return QStringLiteral("运行时错误 '6':\n\n溢出"); }
    static QString closedObject() {
        return QStringLiteral("运行时错误 '3704':\n\n对象关闭时，不允许操作。");
    }
    static QString noCurrentRecord() {
        return QStringLiteral(
            "运行时错误 '3021':\n\nBOF 或 EOF "
            "中有一个是“真”，或者当前记录已被删除，所需的操作要求一个当前的记录。");
    }
    static QString noSuchField(const QString& name) {
        return QStringLiteral(
                   "运行时错误 '3265':\n\n在对应所需名称或序数的集合中，未找到项目。(%1)")
            .arg(name);
    }

private:
    QString text_;
};

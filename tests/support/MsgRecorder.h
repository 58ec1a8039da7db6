#pragma once
// Stands in for the message boxes in tests: records every box shown and
// answers question boxes from a queue the test fills. A box the test did not
// take with Take() fails the test at the end (see Verify).
#include <QList>
#include <QStringList>

#include "MsgBox.h"

class MsgRecorder {
public:
    MsgRecorder();
    ~MsgRecorder();

    // The next answers, in order, for boxes with Yes/No (or Ok/Cancel) buttons.
    void Answer(MsgBox::Answer a) { answers_ << a; }
    void Yes() { Answer(MsgBox::Answer::Yes); }
    void No() { Answer(MsgBox::Answer::No); }

    // Boxes shown since the last Take, oldest first; they count as expected.
    QList<MsgBox::Box> Take();
    QStringList TakeTexts();
    // Boxes not yet taken.
    const QList<MsgBox::Box>& Pending() const { return shown_; }
    // Empties the record; returns a description of anything left over (empty if none).
    QString Leftovers();
    // Answers not used.
    int UnusedAnswers() const { return int(answers_.size()); }

private:
    QList<MsgBox::Box> shown_;
    QList<MsgBox::Answer> answers_;
    MsgBox::Presenter previous_;
};

// In a test: fails when boxes were shown that the test did not take.
#define CS_NO_LEFTOVER_BOXES(rec)                                          \
    do {                                                                   \
        const QString left_ = (rec).Leftovers();                           \
        QVERIFY2(left_.isEmpty(), qPrintable("unexpected box: " + left_)); \
    } while (0)

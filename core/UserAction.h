#pragma once
// One user action: the life of one guarded event handler. Its statements
// share one transaction on the data file (see clsDbopt), which is committed
// when the action ends: at End, or when the object goes.
class UserAction {
public:
    UserAction();
    ~UserAction();
    UserAction(const UserAction&) = delete;
    UserAction& operator=(const UserAction&) = delete;

    // Ends the action now (before the box of a run-time error).
    void End();

    // The program is about to wait for the user (a message box, a window
    // opened from the handler): what the action wrote so far is committed
    // now, so that no other till waits on a person. Later writes of the same
    // action begin a transaction of their own. The box that reports a failed
    // statement does not end the transaction: the statements that follow it
    // still belong to the same action.
    static void BeforeWaiting();

private:
    int depth_;
    bool ended_ = false;
};

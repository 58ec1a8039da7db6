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

    // Ends the action now (before a message box that closes the handler, so
    // that no other till waits on it).
    void End();

private:
    int depth_;
    bool ended_ = false;
};

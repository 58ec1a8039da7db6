#include "UserAction.h"

#include "Session.h"

UserAction::UserAction() {
    clsDbopt::EnterAction();
    depth_ = clsDbopt::ActionDepth();
}

UserAction::~UserAction() {
    End();
}

void UserAction::End() {
    if (ended_) return;
    ended_ = true;
    if (Session::HasDbopt()) Session::Dbopt().LeaveAction(depth_);
    clsDbopt::LeaveActionDepth();
}

void UserAction::BeforeWaiting() {
    if (Session::HasDbopt()) Session::Dbopt().CommitBeforeWaiting();
}

#pragma once
// The five-button toolbar of the user and role windows (新增, 编辑, 删除,
// 取消, 保存): icons from the desktop's theme, or plain painted ones.
class QToolBar;

namespace AdminToolbar {
void SetIcons(QToolBar* bar);
}

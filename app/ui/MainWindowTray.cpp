// The notification-area icon that a minimised window may become.
#include <QApplication>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>

#include "app/Options.h"
#include "app/ui/InterfaceLanguage.h"
#include "app/ui/MainWindow.h"

// MinimizeToTray: 1 always, 2 when Ctrl is held as the window is minimised, 0 never.
void CMainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || !isMinimized()) return;
  const int nMode = Options().nMinimizeToTray;
  if (nMode == 1 || (nMode == 2 && QApplication::keyboardModifiers() & Qt::ControlModifier))
    QTimer::singleShot(0, this, &CMainWindow::MinimizeToTray);  // after the state change ends
}

// The window leaves the task bar for an icon in the notification area, whose menu brings it
// back or closes the program; without a notification area it stays minimised.
void CMainWindow::MinimizeToTray() {
  if (!QSystemTrayIcon::isSystemTrayAvailable())
    return ShowMessage(WindowText("Warning"), WindowText("Unable to Set Tray Icon"));
  if (!trayIcon) {
    trayIcon = new QSystemTrayIcon(windowIcon(), this);
    trayIcon->setObjectName("trayIcon");
    auto* menu = new QMenu(this);
    connect(AddLabelled(menu, "Show program"), &QAction::triggered, this, [this] {
      trayIcon->hide();
      showNormal();
      activateWindow();
    });
    connect(AddLabelled(menu, "Close program"), &QAction::triggered, this, &QWidget::close);
    trayIcon->setContextMenu(menu);
    connect(trayIcon, &QSystemTrayIcon::activated, this, [this] {
      trayIcon->hide();
      showNormal();
    });
  }
  trayIcon->show();
  hide();
}

void CMainWindow::HideTrayIcon() {
  if (trayIcon) trayIcon->hide();
}

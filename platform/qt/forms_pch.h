#pragma once
// Precompiled for the forms: only what most of them include anyway, each header singly.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QEvent>
#include <QEventLoop>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QString>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <map>
#include <string>

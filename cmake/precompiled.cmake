# The headers that nearly every file of a kind reads, precompiled. Sources include what they use all
# the same: `./test lint` reads them without.
set(STANDARD_HEADERS <algorithm> <array> <cstdint> <functional> <memory> <optional> <string>
                     <string_view> <vector>)
set(TOOLKIT_HEADERS <QAction> <QApplication> <QCheckBox> <QComboBox> <QEvent> <QKeyEvent> <QLabel>
                    <QLineEdit> <QMouseEvent> <QPainter> <QPushButton> <QScrollBar> <QString>
                    <QTimer> <QWidget>)

# clang writes the time into a precompiled header unless told not to, and the compiler cache then
# takes it for another one at each build.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

"""qt.py X Y [URI...]: a window at X, Y that files are dragged from and dropped on, made with Qt.
Prints "ready", "over" with each movement of a drag above it, the addresses that were dropped, and
how a drag of its own ended."""

import sys

from PyQt5.QtCore import QMimeData, Qt, QUrl
from PyQt5.QtGui import QDrag
from PyQt5.QtWidgets import QApplication, QLabel

x, y = map(int, sys.argv[1:3])
uris = sys.argv[3:]


def tell(*words):
    print(*words, flush=True)


class Area(QLabel):
    def __init__(self):
        super().__init__("Qt")
        self.setAcceptDrops(True)
        self.pressed = None

    def showEvent(self, event):
        super().showEvent(event)
        tell("ready")

    def mousePressEvent(self, event):
        self.pressed = event.pos()

    def mouseMoveEvent(self, event):
        if (event.pos() - self.pressed).manhattanLength() < QApplication.startDragDistance():
            return
        data = QMimeData()
        data.setUrls([QUrl(uri) for uri in uris])
        drag = QDrag(self)
        drag.setMimeData(data)
        tell("ended" if drag.exec_(Qt.CopyAction | Qt.MoveAction) else "failed")

    def dragEnterEvent(self, event):
        if event.mimeData().hasUrls():
            event.acceptProposedAction()

    def dragMoveEvent(self, event):
        tell("over")
        event.acceptProposedAction()

    def dropEvent(self, event):
        tell("dropped", *(bytes(url.toEncoded()).decode() for url in event.mimeData().urls()))
        event.acceptProposedAction()


application = QApplication(sys.argv)
area = Area()
area.setGeometry(x, y, 160, 120)
area.show()
application.exec_()

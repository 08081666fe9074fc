"""A line on loopback to a server, cut off after so many bytes of either side, and slow if wanted."""
import socket
import threading
import time


def hang_up(sockets):
    """Closing alone would leave a line open while a thread waits for it."""
    for each in sockets:
        try:
            each.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass  # it has gone already


class Proxy:
    """Serves any number of clients until closed. `limit` bytes may pass in all; None for no end."""

    def __init__(self, server_port):
        self.server_port, self.delay = server_port, 0.0
        self.lock = threading.Lock()
        self.sockets = []
        self.reset(None)
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self.accept, daemon=True).start()

    def reset(self, limit):
        self.limit, self.passed, self.has_cut = limit, 0, False
        self.close_lines()

    def close_lines(self):
        hang_up(self.sockets)
        self.sockets = []

    def accept(self):
        while True:
            try:
                client, _ = self.listener.accept()
                if self.has_cut:
                    client.close()
                    continue
                server = socket.create_connection(("127.0.0.1", self.server_port))
            except OSError:
                return
            self.sockets += [client, server]
            for ends in ((client, server), (server, client)):
                threading.Thread(target=self.forward, args=ends, daemon=True).start()

    def forward(self, source, target):
        try:
            while data := source.recv(65536):
                if self.delay:
                    time.sleep(self.delay)
                target.sendall(self.allowed(data))
                if self.has_cut:
                    break
        except OSError:
            pass
        hang_up((source, target))

    def allowed(self, data):
        with self.lock:
            room = len(data) if self.limit is None else max(0, self.limit - self.passed)
            self.passed += len(data)
            if room < len(data):
                self.has_cut = True
            return data[:room]

    def close(self):
        self.listener.close()
        self.close_lines()

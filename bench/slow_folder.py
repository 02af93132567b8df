"""A network folder on one machine: sshfs, which asks a server for each stretch that it lacks, and between them a relay
on which every answer takes as long as on a way through a network. It stands for any folder of a server in that: the
system keeps what was read, reads ahead, and waits a round trip for what it does not have."""

import contextlib
import os
import queue
import shutil
import socket
import subprocess
import tempfile
import threading
import time

SERVER = "/usr/lib/openssh/sftp-server"


class Relay:
    """Hands bytes on, each a while after it came, and counts what the server sends."""

    def __init__(self, round_trip):
        self.delay = round_trip / 2
        self.sent = 0
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        connection, _ = self.listener.accept()
        connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        with subprocess.Popen([SERVER], stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0) as server:
            asked = threading.Thread(target=self.hand_on, daemon=True,
                                     args=(lambda: connection.recv(1 << 18), server.stdin.write))
            asked.start()

            def answer():
                data = os.read(server.stdout.fileno(), 1 << 18)
                self.sent += len(data)
                return data

            self.hand_on(answer, connection.sendall)
            connection.close()

    def hand_on(self, take, give):
        under_way = queue.SimpleQueue()

        def arrive():
            with contextlib.suppress(OSError):
                while True:
                    when, data = under_way.get()
                    time.sleep(max(when - time.monotonic(), 0))
                    if not data:
                        return
                    give(data)

        threading.Thread(target=arrive, daemon=True).start()
        data = b"..."
        while data:
            try:
                data = take()
            except OSError:
                data = b""
            under_way.put((time.monotonic() + self.delay, data))


@contextlib.contextmanager
def slow_folder(folder, round_trip):
    """Another name for a folder, whose server is that far away, and its relay. Nothing where none can be mounted."""
    if not shutil.which("sshfs") or not os.path.exists(SERVER):
        yield None, None
        return
    relay = Relay(round_trip)
    with tempfile.TemporaryDirectory() as place:
        mounted = subprocess.run(["sshfs", "-o", f"directport={relay.port},auto_cache",
                                  f"localhost:{os.path.abspath(folder)}", place],
                                 stderr=subprocess.DEVNULL, check=False).returncode == 0
        try:
            yield (place, relay) if mounted else (None, None)
        finally:
            if mounted:
                subprocess.run(["fusermount3", "-u", place], check=True)

"""The panel as a test written in Python drives it."""

import json
import os
import pathlib
import queue
import subprocess
import threading


class PanelProcess:
    """`with PanelProcess(environment) as panel:` runs a panel on the bus of that environment."""

    def __init__(self, environment=None, *arguments):
        program = pathlib.Path(__file__).parent / "panel.py"
        self.process = subprocess.Popen(
            ["/usr/bin/python3", program, *arguments], env=environment or os.environ.copy(),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.records = queue.Queue()
        self.seen = []
        threading.Thread(target=self._listen, daemon=True).start()

    def __enter__(self):
        self.next(lambda record: record.get("event") == "ready")
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(30)
        self.process.stdout.close()

    def _listen(self):
        for line in self.process.stdout:
            self.records.put(json.loads(line))

    def next(self, wanted, seconds=30):
        """The next record that `wanted` holds for; those before it go to `seen` as well."""
        while True:
            try:
                record = self.records.get(timeout=seconds)
            except queue.Empty:
                raise AssertionError(f"the panel saw nothing of the kind; it saw {self.seen}") from None
            self.seen.append(record)
            if wanted(record):
                return record

    def item(self, seconds=30, **shown):
        """Waits until the panel shows an item with these values ("label", "icon", "tooltip", …)."""
        return self.next(lambda record: record.get("event") == "item" and shown.items() <= record.items(),
                         seconds)

    def do(self, command, **arguments):
        """Has the command carried out; answers its value, fails where the item answered an error."""
        self.process.stdin.write(json.dumps({"do": command, **arguments}) + "\n")
        self.process.stdin.flush()
        if command in {"start", "stop"}:
            return self.next(lambda record: record.get("event") == {"start": "started", "stop": "stopped"}[command])
        answer = self.next(lambda record: record.get("answer") == command)
        if "error" in answer:
            raise AssertionError(f"{command}: {answer['error']}")
        return answer.get("value")

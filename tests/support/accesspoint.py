"""A simulated access point in a folder of its own, for tests that are written in Python."""
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["ORU_BUILD_DIR"])


class AccessPoint:
    """Runs from its making to close(); nothing is on the air but what control() adds."""

    def __init__(self):
        self.root = tempfile.mkdtemp(prefix="oru-")
        self.environment = os.environ | {"ORU_ROOT": self.root, "ORU_LOG": "none",
                                         "ORUSIM_FACTORY": str(SOURCES / "share")}
        self._orusim("--init")
        reader, writer = os.pipe()
        self._services = subprocess.Popen(
            [BUILD / "tools/orusim/orusim", "--quiet", "--stations", "0", "--ready-fd", str(writer)],
            env=self.environment, pass_fds=[writer], stdout=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader, "rb") as ready:
            if not ready.read(1):
                self.close()
                raise RuntimeError("orusim did not start")

    def _orusim(self, *arguments):
        return subprocess.run([BUILD / "tools/orusim/orusim", *arguments], env=self.environment, check=True,
                              capture_output=True, text=True).stdout

    def control(self, line):
        return self._orusim("--control", line)

    def file(self, path):
        """A file of the access point."""
        return Path(self.root + path)

    def close(self):
        self._services.terminate()
        self._services.wait()
        shutil.rmtree(self.root)

"""The probe voxtab-sonde as a Python object: one JSON job in, one JSON result out."""
import json
import subprocess


class Sonde:
    """A running probe. Each job is a fresh program inside it."""

    def __init__(self, program: str) -> None:
        self._process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         text=True, encoding="utf-8")

    def __enter__(self) -> "Sonde":
        return self

    def __exit__(self, *_: object) -> None:
        self._process.stdin.close()
        self._process.wait(timeout=60)

    def run(self, job: dict) -> dict:
        """The result of one job; a refused job is a fault of the test."""
        self._process.stdin.write(json.dumps(job) + "\n")
        self._process.stdin.flush()
        result = json.loads(self._process.stdout.readline())
        if "erreur" in result:
            raise RuntimeError(f"refused job {job}: {result['erreur']}")
        return result

    def calculate(self, lines: list[str], options: dict) -> dict:
        """Calculates a sheet of these lines; the text comes back as a list of lines in "lignes"."""
        result = self.run({"text": "\r\n".join(lines), **options})
        result["lignes"] = result["text"].split("\r\n")
        return result

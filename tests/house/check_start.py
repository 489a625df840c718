"""What is loaded late is not linked: each library costs every start time and memory.

Usage: check_start.py PROGRAM
"""

import re
import subprocess
import sys

LATE = ("Qt6Help", "Qt6Sql", "Qt6Pdf", "Qt6PrintSupport", "Qt6WebEngine", "Qt6Network", "ical")

linked = re.findall(r"NEEDED\s+lib(\S+?)\.so", subprocess.run(
    ["objdump", "--private-headers", sys.argv[1]], check=True, capture_output=True, text=True).stdout)
early = [name for name in linked if name.startswith(LATE)]
print(f"{len(linked)} libraries at the start; late ones among them: {', '.join(early) or 'none'}")
sys.exit(1 if early or "Qt6Widgets" not in linked else 0)

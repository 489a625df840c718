"""Tools that a test takes and that only the packages of purpose `develop` bring."""

import os
import shutil


def reason_to_skip(*tools: str) -> str:
    """@param tools names of programs, paths of files
    @return why a test of these has to be skipped; empty when they are all here.

    Where QUOR_ALL_TOOLS is set, as .ci/run sets it, one that is missing is a failure.
    """
    path = os.environ.get("PATH", "") + ":/usr/sbin:/sbin"
    missing = [tool for tool in tools
               if not (os.path.exists(tool) if "/" in tool else shutil.which(tool, path=path))]
    if not missing:
        return ""
    if os.environ.get("QUOR_ALL_TOOLS"):
        raise SystemExit(f"missing: {', '.join(missing)}")
    return f"{', '.join(missing)} missing; scripts/bootstrap develop installs it"

"""Tobble's parts, and the poses that they are put together to."""

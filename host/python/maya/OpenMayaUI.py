"""The API's way to the host's widgets."""

from maya._interface import MQtUtil

"""The API's way to the host's widgets."""

from maya._api import MQtUtil

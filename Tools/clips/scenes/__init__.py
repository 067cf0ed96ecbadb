"""The six clips, in their order."""

from . import box, fish, keyboard, kneading, rain, snow

ALL = (rain.SCENE, fish.SCENE, kneading.SCENE, box.SCENE, keyboard.SCENE, snow.SCENE)

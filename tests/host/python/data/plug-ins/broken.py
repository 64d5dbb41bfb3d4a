def initializePlugin(plugin:

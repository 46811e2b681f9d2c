# The libraries and the manifest that serves in place of a registration, in one folder.
install(TARGETS vestara dorvane RUNTIME DESTINATION .)
install(FILES ${SERVER_MANIFEST} LICENSE DESTINATION .)

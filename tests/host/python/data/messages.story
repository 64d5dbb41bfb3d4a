== Callbacks come in turn and can be removed
first = om.MEventMessage.addEventCallback("quitApplication", lambda data: print(data, om.MMessage.currentCallbackId() == first), "first")
second = om.MEventMessage.addEventCallback("quitApplication", print, "second")
@fire quitApplication >> Display: first True\nsecond
om.MMessage.removeCallback(first)
@fire quitApplication >> Display: second
om.MMessage.removeCallbacks([second])
om.MMessage.removeCallback(first) => error: (kInvalidParameter): There is no callback with the id ...
om.MEventMessage.addEventCallback("noEvent", print) => error: There is no event named 'noEvent'
om.MEventMessage.addEventCallback("quitApplication", 5) => error: A callback has to be a function, not int
om.MMessage.currentCallbackId() => 0

== Commands and procedures that MEL calls are heard
mel: global proc string hello(string $who) { tokenize($who, " ", {}); about -version; return "hi " + $who; }
calls = []; heard = om.MCommandMessage.addCommandCallback(lambda text, data: calls.append(text))
ends = om.MCommandMessage.addProcCallback(lambda *what: calls.append(what[:-1] if what[0] != "python" else ""), 5)
mel: hello("you")
calls => [('hello', 1, True, 0), 'about -version;', ('about', 2, True, 1), ('about', 2, False, 1), ('hello', 1, False, 0)]
om.MMessage.removeCallbacks([heard, ends]); calls.clear()
mel: hello("you")
calls => []

== Events of the scripts' own
om.MUserEventMessage.registerUserEvent("ready")
one = om.MUserEventMessage.addUserEventCallback("ready", print, "one")
two = om.MUserEventMessage.addUserEventCallback("ready", print, "two")
om.MUserEventMessage.postUserEvent("ready") >> Display: one\ntwo
om.MMessage.removeCallback(one)
om.MUserEventMessage.postUserEvent("ready") >> Display: two
om.MUserEventMessage.registerUserEvent("ready") => error: (kFailure): The user event 'ready' exists already.
om.MUserEventMessage.deregisterUserEvent("ready")
om.MUserEventMessage.isUserEvent("ready") => False
om.MUserEventMessage.postUserEvent("ready") => error: (kInvalidParameter): There is no user event named 'ready'.

== Timers ring until they are removed
rings = []
def ring(elapsed, length, data): rings.append(data) or len(rings) == 2 and om.MMessage.removeCallback(timer)
timer = om.MTimerMessage.addTimerCallback(0.001, ring, "ring")
@until len(rings) == 2
om.MMessage.removeCallback(timer) => error: ...

== Scene messages are events
saved = om.MSceneMessage.addCallback(om.MSceneMessage.kAfterSave, print, "saved")
@fire SceneSaved >> Display: saved
om.MMessage.removeCallback(saved)

== Work for the main thread
utils.executeDeferred("print(5)"); utils.executeDeferred(print, 6)
>>
@idle >> Display: 5\n6
utils.processIdleEvents()
utils.runOnMainThread(lambda: 7)() => 7
kept = utils.formatGuiException; utils.formatGuiException = lambda *error: "my own: " + str(error[1])
1 / 0 => error: division by zero >> Error: my own: division by zero
utils.formatGuiException = kept
utils.formatGuiResult = lambda value: "<%s>" % value
5 => <5>

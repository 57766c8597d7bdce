-- Ardour without a display: makes a session with the plug-in on a track, or loads one, and prints
-- the parameters as the plug-in has them.
-- Arguments: FOLDER make|load PARAMETER=VALUE...
local folder, step = arg[1], arg[2]
AudioEngine:set_backend("None (Dummy)", "", "")

local function show(processor)
    for i = 0, processor:to_insert():plugin(0):parameter_count() - 1 do
        local value = ARDOUR.LuaAPI.get_processor_param(processor, i, false)
        print(string.format("parameter %d = %.9g", i, value))
    end
end

local session
if step == "make" then
    session = create_session(folder, "session", 48000)
    local tracks = session:new_audio_track(2, 2, nil, 1, "Track", 0,
                                           ARDOUR.TrackMode.Normal, true)
    local plugin = ARDOUR.LuaAPI.new_plugin(session, "Ondara Mini", ARDOUR.PluginType.LXVST, "")
    assert(not plugin:isnil(), "the plug-in was not found")
    for track in tracks:iter() do
        track:add_processor_by_index(plugin, 0, nil, true)
    end
    for i = 3, #arg do
        local index, value = string.match(arg[i], "(%d+)=(.+)")
        ARDOUR.LuaAPI.set_processor_param(plugin, tonumber(index), tonumber(value))
    end
    ARDOUR.LuaAPI.usleep(200000)
    show(plugin)
else
    session = load_session(folder, "session")
    assert(session, "the session cannot be loaded")
    ARDOUR.LuaAPI.usleep(200000)
    for route in session:get_routes():iter() do
        local plugin = route:nth_plugin(0)
        if not plugin:isnil() then
            show(plugin)
        end
    end
end
session:save_state("session", false, false, false, false, false)
close_session()
quit()

#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# A plan of conversions on a farm: Slurm on this machine, and GNU parallel over ssh. See usage below.
set -euo pipefail
tree=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../..
cd "$tree"

usage() {
    cat <<'TEXT'
usage: scripts/prove farm

Sets up a farm of one node with the daemons of Slurm, and two ssh servers on the loopback address; takes root. A plan
of 40 jobs goes over each, with the files of docs/farm: three clips are no media, two jobs lose their ffmpeg twice, a
third one loses zoconvert itself, one needs an image that is not there, and the node, or one of the two hosts, crashes in
the middle. Slurm tries again by itself, and goes on when the image is there and the job released; over ssh the same
command is run once more. In the end each good file must have been converted once, none half, and nothing tried for
ever. Slurm also does a part of its plan. Takes some eight minutes, most of them Slurm's pauses before a second try; when
something failed, plans and logs are kept in build/farm. Closes with a table and "N passed, N failed".
TEXT
}

# shellcheck source-path=SCRIPTDIR source=support/arguments.sh
source scripts/proofs/support/arguments.sh
only_numbers 0 "$@"
if ((EUID != 0)); then
    echo 'farm: the daemons of Slurm need root' >&2
    exit 1
fi

scripts/install-packages build run slurmctld slurmd slurm-client munge openssh-server openssh-client parallel || exit 1

# shellcheck source-path=SCRIPTDIR source=support/build.sh
source scripts/proofs/support/build.sh
build release zoconvert

# until_seconds N COMMAND...: waits until it succeeds.
until_seconds() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < end)) || return 1
        sleep 0.5
    done
}

real_ffmpeg=$(command -v ffmpeg)
work=$(mktemp -d /tmp/zofarm.XXXXXX)
chmod 755 "$work"
export SLURM_CONF=$work/slurm/slurm.conf
daemons=()
declare -A nodes=()
finish() {
    local status=$?
    if [[ $status != 0 ]]; then
        rm -rf build/farm
        cp -r "$work" build/farm || true
    fi
    [[ ! -e $SLURM_CONF ]] || scancel --state=PENDING,RUNNING --user=root 2> /dev/null || true
    for pidfile in "${daemons[@]}"; do
        [[ ! -e $pidfile ]] || kill "$(cat "$pidfile")" 2> /dev/null || true
    done
    for node in "${!nodes[@]}"; do
        end "$node"
    done
    # The daemons may still write.
    until_seconds 30 rm -rf "$work" 2> /dev/null || true
}
trap finish EXIT

# begin NODE DAEMON...: a node has its processes for itself. Its first one takes what others leave behind.
begin() {
    unshare --pid --fork --kill-child --mount-proc bash -c '"$@" && sleep infinity & wait' "$@" &>> "$work/$1.log" &
    nodes[$1]=$!
}
first_of() { pgrep --parent "${nodes[$1]}"; }
# end NODE: as when it loses its power: all of it dies at once, and nothing is left to tell of it.
end() {
    kill -KILL "$(first_of "$1")" 2> /dev/null || true
    wait "${nodes[$1]}" 2> /dev/null || true
    unset "nodes[$1]"
}
# converts_long NODE: whether it is in the middle of the long clip.
converts_long() { pgrep --ns "$(first_of "$1")" --nslist pid --full 'long\.mkv.*/\.zo-.*\.part' > /dev/null; }

export QT_QPA_PLATFORM=offscreen ZOEFFECT_FFMPEG=$work/bin
export PATH=$work/bin:$PATH
passed=0
failed=0
check() {
    local what=$1
    shift
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL!  : farm: $what: $*"
    fi
}
equal() { [[ $1 == "$2" ]]; }

# An ffmpeg that is killed, or its zoconvert, as often as killed/NAME has lines: BASHPID or PPID.
mkdir -p "$work/bin" "$work/killed"
ln -s "$PWD/build/release/apps/zoconvert/zoconvert" "$work/bin/zoconvert"
ln -s "$(command -v ffprobe)" "$work/bin/ffprobe"
cat > "$work/bin/ffmpeg" <<SCRIPT
#!/bin/bash
for argument; do
    lives=$work/killed/\$(basename -- "\${argument#file:}")
    case \$argument in
    *.mkv)
        if read -r whom 2> /dev/null < "\$lives"; then
            sed -i 1d "\$lives"
            kill -KILL "\${!whom}"
        fi
        ;;
    esac
done
exec $real_ffmpeg "\$@"
SCRIPT
chmod +x "$work/bin/ffmpeg"

# lose_processes: two jobs lose their ffmpeg twice, one its zoconvert.
lose_processes() {
    printf 'BASHPID\nBASHPID\n' | tee "$work/killed/clip 12.mkv" > "$work/killed/clip 13.mkv"
    echo PPID > "$work/killed/clip 14.mkv"
}

# 40 clips: three that are none, one that takes a while, odd names.
make_clips() {
    local folder=$1
    mkdir -p "$folder"
    ffmpeg -v error -nostdin -f lavfi -i testsrc=size=160x90:rate=10:duration=1 -c:v mpeg4 "$folder/clip 10.mkv"
    for number in {11..45}; do
        cp "$folder/clip 10.mkv" "$folder/clip $number.mkv"
    done
    mv "$folder/clip 11.mkv" "$folder/it's \"11\".mkv"
    for bad in 46 47 48; do
        cp "$folder/clip 10.mkv" "$folder/bad $bad.mkv"
    done
    ffmpeg -v error -nostdin -f lavfi -i testsrc=size=1280x720:rate=25:duration=40 -c:v mpeg4 -q:v 3 \
        "$folder/clip 25 long.mkv"
    "$real_ffmpeg" -v error -nostdin -f lavfi -i color=red:size=32x32 -frames:v 1 "$folder/logo.png"
}

make_plan() {
    local folder=$1
    (
        cd "$folder"
        zoconvert plan ./*.mkv --text Farm --output-folder out --plan plan 2> plan.said
        # One needs a logo.
        zoconvert plan 'clip 20.mkv' --image logo.png -o out/logo.mkv --plan one 2>> plan.said
        sed -i '/clip 20-converted/d' plan
        cat one >> plan
        sed -i "$(awk '{ print NR "s/\"job\":[0-9]*,/\"job\":" NR ",/" }' plan)" plan
    )
    for bad in 46 47 48; do
        echo 'no film any more' > "$folder/bad $bad.mkv"
    done
}

# results FOLDER OUTCOME: how many jobs ended so, and how often they were begun.
outcomes() {
    local count
    count=$(zoconvert work --report "$1/plan" | awk '{print $2}' | grep -cE "^($2)\$" || true)
    echo "$count"
}
begun() {
    grep -c "\"job\":$2,\"outcome\":\"$3\"" "$1/plan.results" || true
}
number_of() {
    grep -F "$2" "$1/plan" | sed 's/.*"job":\([0-9]*\),.*/\1/'
}
check_outputs() {
    local folder=$1
    local name short=0
    for name in "$folder"/out/*.mkv; do
        local seconds wanted=1
        [[ $name != *long* ]] || wanted=40
        seconds=$(ffprobe -v error -show_entries format=duration -of csv=p=0 "file:$name" || echo 0)
        awk -v a="$seconds" -v b="$wanted" 'BEGIN { exit !(a > b - 0.15 && a < b + 0.15) }' || short=$((short + 1))
    done
    check 'files that are half' equal "$short" 0
    check 'parts that are left' equal "$(find "$folder" -name '*.part' | wc -l)" 0
    check 'files converted' equal "$(find "$folder/out" -name '*.mkv' | wc -l)" 37
    local twice
    twice=$(grep '"done"' "$folder/plan.results" | sort | uniq -d | wc -l)
    check 'files converted twice' equal "$twice" 0
}

start_munge() {
    if ! munge -n 2> /dev/null | unmunge > /dev/null 2>&1; then
        install -d -o munge -g munge -m 755 /run/munge
        runuser -u munge -- /usr/sbin/munged
        daemons+=(/run/munge/munged.pid)
    fi
}

start_slurm() {
    local host cpus
    host=$(hostname -s)
    cpus=$(nproc)
    install -d -o slurm -g slurm "$work/slurm" "$work/slurm/state"
    mkdir -p "$work/slurm/spool"
    cat > "$work/slurm/slurm.conf" <<CONF
ClusterName=zo
SlurmctldHost=$host(127.0.0.1)
AuthType=auth/munge
SlurmUser=slurm
StateSaveLocation=$work/slurm/state
SlurmdSpoolDir=$work/slurm/spool
SlurmctldPidFile=$work/slurm/slurmctld.pid
SlurmdPidFile=$work/slurm/slurmd.pid
SlurmctldLogFile=$work/slurm/slurmctld.log
SlurmdLogFile=$work/slurm/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
MpiDefault=none
ReturnToService=2
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU_Memory
DefMemPerCPU=512
SchedulerParameters=sched_interval=2,bf_interval=2
AccountingStorageType=accounting_storage/none
JobCompType=jobcomp/filetxt
JobCompLoc=$work/slurm/jobcomp.log
JobRequeue=1
RequeueExit=75
RequeueExitHold=76
KillWait=5
MinJobAge=600
NodeName=$host NodeAddr=127.0.0.1 CPUs=$cpus RealMemory=4000 State=UNKNOWN
PartitionName=main Nodes=$host Default=YES MaxTime=60 State=UP
CONF
    slurmctld
    daemons+=("$work/slurm/slurmctld.pid")
    begin slurm slurmd
    until_seconds 60 node_is idle
}
node_is() { sinfo --noheader --format=%T | grep -q "$1"; }
state_of() { squeue --noheader --array --states=all --format='%K %T' | awk -v n="$1" '$1 == n { print $2 }'; }
has_state() { [[ $(state_of "$1") == "$2" ]]; }
all_ended() { ! squeue --noheader --array --states=all --format=%T | grep -qvx 'COMPLETED\|FAILED'; }

echo '== a farm of Slurm'
slurm=$work/over-slurm
make_clips "$slurm"
make_plan "$slurm"
flaky=$(number_of "$slurm" 'clip 12-converted')
flaky_too=$(number_of "$slurm" 'clip 13-converted')
lost=$(number_of "$slurm" 'clip 14-converted')
bad=$(number_of "$slurm" 'bad 46-converted')
logo=$(number_of "$slurm" 'out/logo')
lose_processes
mv "$slurm/logo.png" "$slurm/logo.away"
start_munge
start_slurm
check 'jobs in the plan' equal "$(wc -l < "$slurm/plan")" 40
began=$SECONDS
submit() { (cd "$slurm" && sbatch --quiet --array="1-$1" "$tree/docs/farm/zoconvert.sbatch" "${@:2}"); }
submit 40 plan
check 'the long job runs' until_seconds 300 converts_long slurm
echo '== the node crashes'
end slurm
scontrol update nodename="$(hostname -s)" state=down reason=crashed
begin slurm slurmd
check 'the node comes back' until_seconds 60 node_is 'idle\|mixed\|allocated'
check 'the job that needs a logo is held' until_seconds 400 has_state "$logo" SPECIAL_EXIT
echo '== the logo comes'
mv "$slurm/logo.away" "$slurm/logo.png"
held=$(squeue --noheader --array --states=all --format='%K %A_%K' | awk -v n="$logo" '$1 == n { print $2 }')
scontrol release "$held"
check 'all jobs end' until_seconds 900 all_ended
took=$((SECONDS - began))

echo '== a part of the plan'
split --lines=10 --numeric-suffixes --suffix-length=4 "$slurm/plan" "$slurm/plan."
rm "$slurm"/out/clip\ 4[01]-converted.mkv
submit 10 plan.0003 30
check 'its jobs end' until_seconds 300 all_ended
check 'its jobs are the last ten' equal "$(sed 's/.*"job":\([0-9]*\),.*/\1/' "$slurm/plan.0003.results" | sort -n | xargs)" \
    '31 32 33 34 35 36 37 38 39 40'
check 'of which two were to be done' equal "$(grep -c '"done"' "$slurm/plan.0003.results")" 2

check_outputs "$slurm"
check 'done' equal "$(outcomes "$slurm" 'done|skipped')" 37
check 'failed' equal "$(outcomes "$slurm" failed)" 3
check 'tries of a bad file' equal "$(begun "$slurm" "$bad" failed)" 1
check 'tries that lost their ffmpeg' equal "$(begun "$slurm" "$flaky" failed) $(begun "$slurm" "$flaky_too" failed)" '2 2'
check 'tries, one of which lost its zoconvert' equal "$(grep -c 'track 0' "$slurm/zoconvert-1_$lost.log")" 2
check 'tries without the logo' equal "$(begun "$slurm" "$logo" failed)" 1
row_slurm="| Slurm, 1 node | 40 | $(outcomes "$slurm" 'done|skipped') | $(outcomes "$slurm" failed) | $(wc -l < "$slurm/plan.results") | $took s |"
end slurm
kill "$(cat "$work/slurm/slurmctld.pid")"

echo '== GNU parallel over ssh'
over=$work/"over ssh's"
make_clips "$over"
make_plan "$over"
lose_processes
mv "$over/logo.png" "$over/logo.away"
ssh-keygen -q -t ed25519 -N '' -f "$work/key"
ssh-keygen -q -t ed25519 -N '' -f "$work/hostkey"
cp "$work/key.pub" "$work/authorized"
mkdir -p /run/sshd
start_worker() {
    local port=$1
    cat > "$work/sshd.$port" <<CONF
Port $port
ListenAddress 127.0.0.1
HostKey $work/hostkey
PidFile none
AuthorizedKeysFile $work/authorized
StrictModes no
PermitRootLogin prohibit-password
SetEnv PATH=$PATH ZOEFFECT_FFMPEG=$work/bin QT_QPA_PLATFORM=offscreen
CONF
    begin "$port" /usr/sbin/sshd -f "$work/sshd.$port"
}
start_worker 2231
start_worker 2232
ssh="ssh -i $work/key -o StrictHostKeyChecking=no -o UserKnownHostsFile=/dev/null -o LogLevel=ERROR 127.0.0.1"
export PARALLEL_HOME=$work/parallel
mkdir -p "$PARALLEL_HOME"
touch "$PARALLEL_HOME/will-cite"
over_ssh() { docs/farm/over-ssh "$over/plan" "$ssh -p 2231,$ssh -p 2232"; }
find_long() {
    for worker in 2231 2232; do
        ! converts_long "$worker" || return 0
    done
    return 1
}
began=$SECONDS
over_ssh > "$work/parallel.log" 2>&1 &
running=$!
echo "$running" > "$work/parallel.pid"
daemons+=("$work/parallel.pid")
check 'the long job runs over ssh' until_seconds 300 find_long
echo '== one of the hosts crashes, and stays away'
end "$worker"
status=0
wait "$running" || status=$?
rm "$work/parallel.pid"
check 'failed at first' equal "$(outcomes "$over" failed), ended $status" '6, ended 6'
check 'both workers worked' equal "$(cut -f 2 "$over/plan.joblog" | sort -u | grep -c 'p 223')" 2
echo '== the host and the logo come, and the same once more'
start_worker "$worker"
mv "$over/logo.away" "$over/logo.png"
status=0
over_ssh >> "$work/parallel.log" 2>&1 || status=$?
took=$((SECONDS - began))
check_outputs "$over"
check 'done' equal "$(outcomes "$over" 'done|skipped')" 37
check 'failed' equal "$(outcomes "$over" failed), ended $status" '3, ended 3'
row_ssh="| GNU parallel, 2 workers by ssh | 40 | $(outcomes "$over" 'done|skipped') | $(outcomes "$over" failed) | $(wc -l < "$over/plan.results") | $took s |"

echo
echo '| engine | jobs | done | failed | tries | took |'
echo '|---|---|---|---|---|---|'
echo "$row_slurm"
echo "$row_ssh"
echo "found: 40 jobs each over Slurm and over ssh"
echo "$passed passed, $failed failed"
[[ $failed == 0 ]]

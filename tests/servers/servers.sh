#!/bin/bash
# Private PostgreSQL and MariaDB servers on loopback for the server tests, with data that goes when they stop.
# usage: servers.sh start FILE    writes the connection strings to FILE, a line NAME=STRING each
#        servers.sh stop FILE
# They also stop when the process that started them has gone. Run by root, the servers run as the users that
# their packages made.
set -euo pipefail

command=$1
file=$2

postgres_bin=$(printf '%s\n' /usr/lib/postgresql/*/bin | sort -V | tail -1)
password='p w;}'

as() { # USER COMMAND...
    local user=$1
    shift
    if [ "$(id -u)" -eq 0 ]; then runuser -u "$user" -- "$@"; else "$@"; fi
}

folder_for() { # USER FOLDER
    install -d -m 700 "$2"
    if [ "$(id -u)" -eq 0 ]; then chown "$1" "$2"; fi
}

free_port() {
    local port
    while port=$((20000 + RANDOM % 12000)); (: <"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do :; done
    echo "$port"
}

# Nothing may be there to collect a process that ended, so a zombie counts as gone.
is_running() {
    [ -r "/proc/$1/stat" ] && ! grep -q '^State:.*Z' "/proc/$1/status"
}

start_postgres() { # PORT
    local data=$folder/pg
    folder_for postgres "$data"
    printf '%s\n' "$password" >"$folder/password"
    as postgres "$postgres_bin/initdb" -D "$data" --auth=scram-sha-256 --pwfile="$folder/password" \
        --username=tester --encoding=UTF8 --locale=C.UTF-8 --no-sync
    as postgres "$postgres_bin/pg_ctl" -D "$data" --wait --timeout=60 --log="$data/server.log" \
        -o "-c listen_addresses=127.0.0.1 -c port=$1 -c unix_socket_directories= -c fsync=off" start
    PGPASSWORD=$password "$postgres_bin/createdb" -h 127.0.0.1 -p "$1" -U tester shop
}

start_mariadb() { # PORT
    local data=$folder/my
    folder_for mysql "$data"
    local user=()
    if [ "$(id -u)" -eq 0 ]; then user=(--user=mysql); fi
    mariadb-install-db --no-defaults "${user[@]}" --datadir="$data" --skip-test-db \
        --auth-root-authentication-method=normal
    PATH=$PATH:/usr/sbin mariadbd --no-defaults "${user[@]}" --datadir="$data" --bind-address=127.0.0.1 \
        --port="$1" --socket="$data/s" --pid-file="$data/pid" --character-set-server=utf8mb4 \
        --skip-name-resolve --innodb-flush-log-at-trx-commit=0 </dev/null >"$folder/mariadb.log" 2>&1 &
    for _ in $(seq 600); do
        if mariadb-admin --no-defaults -S "$data/s" -u root ping >/dev/null 2>&1; then break; fi
        sleep 0.1
    done
    mariadb --no-defaults -S "$data/s" -u root -e "
        create database shop;
        create user tester@'127.0.0.1' identified by '$password';
        grant all on *.* to tester@'127.0.0.1' with grant option;"
}

give_up() {
    wait "$postgres" || true
    tail -n 50 "$folder"/*.log
    stop
}

start() {
    stop
    folder=$(mktemp -d "${TMPDIR:-/tmp}/vellumark-servers-XXXXXX")
    chmod 755 "$folder"
    echo "folder=$folder" >"$file"
    local postgres_port mariadb_port
    postgres_port=$(free_port)
    mariadb_port=$(free_port)
    start_postgres "$postgres_port" >"$folder/postgres.log" 2>&1 &
    postgres=$!
    trap give_up EXIT
    start_mariadb "$mariadb_port" >"$folder/install.log" 2>&1
    wait "$postgres"
    trap - EXIT
    local login="SERVER=127.0.0.1;UID=tester;PWD={p w;}}};DATABASE=shop"
    {
        echo "PostgreSQL=DRIVER={PostgreSQL Unicode};PORT=$postgres_port;$login"
        echo "MariaDB=DRIVER={MariaDB Unicode};PORT=$mariadb_port;$login"
    } >>"$file"
    watch "$PPID" </dev/null >/dev/null 2>&1 &
}

watch() { # PROCESS
    while is_running "$1" && [ -d "$folder" ]; do sleep 1; done
    if grep -qs "^folder=$folder$" "$file"; then stop; fi
}

stop() {
    local folder pid
    folder=$(sed -n 's/^folder=//p' "$file" 2>/dev/null || true)
    rm -f "$file"
    if [ -z "$folder" ] || [ ! -d "$folder" ]; then return 0; fi
    if [ -e "$folder/pg/postmaster.pid" ]; then
        as postgres "$postgres_bin/pg_ctl" -D "$folder/pg" --mode=immediate --wait stop >/dev/null || true
    fi
    pid=$(cat "$folder/my/pid" 2>/dev/null || true)
    if [ -n "$pid" ]; then
        mariadb-admin --no-defaults -S "$folder/my/s" -u root shutdown >/dev/null 2>&1 || kill "$pid" || true
        for _ in $(seq 300); do
            if [ ! -e "$folder/my/pid" ] || ! is_running "$pid"; then break; fi
            sleep 0.1
        done
    fi
    rm -rf "$folder"
}

case $command in
start | stop) $command ;;
*) exit 2 ;;
esac

#!/bin/sh
# Makes an authority that a test may trust, and certificates with one fault each: make_certificates.sh FOLDER
set -eu
mkdir -p "$1"
cd "$1"

key() { openssl ecparam -name prime256v1 -genkey -noout -out "$1.key"; }
# signed NAME SUBJECT-ALTERNATIVE START END
signed() {
    key "$1"
    openssl req -new -key "$1.key" -subj "/CN=$1" -out "$1.csr"
    printf 'subjectAltName=%s\n' "$2" >"$1.ext"
    openssl ca -batch -notext -config authority.conf -startdate "$3" -enddate "$4" -extfile "$1.ext" -in "$1.csr" -out "$1.pem"
}

cat >authority.conf <<CONF
[ca]
default_ca = own
[own]
database = issued
new_certs_dir = .
certificate = authority.pem
private_key = authority.key
default_md = sha256
rand_serial = yes
unique_subject = no
policy = any
[any]
commonName = supplied
CONF
: >issued
key authority
openssl req -x509 -new -key authority.key -subj "/CN=authority" -days 36500 -addext basicConstraints=critical,CA:TRUE -out authority.pem

signed good DNS:localhost,IP:127.0.0.1 20200101000000Z 20991231000000Z
signed expired DNS:localhost,IP:127.0.0.1 20200101000000Z 20210101000000Z
signed other DNS:updates.example 20200101000000Z 20991231000000Z
key self
openssl req -x509 -new -key self.key -subj "/CN=localhost" -days 36500 -addext subjectAltName=DNS:localhost,IP:127.0.0.1 -out self.pem
